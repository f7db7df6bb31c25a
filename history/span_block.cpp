// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/span_block.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "history/packed.h"

namespace history {

namespace {

constexpr char kSpanVersion = 1;
constexpr std::uint64_t kLongestSpan = 400 * 86400ull;
enum Flag : std::uint8_t { kHasValue = 1, kHasCauses = 2, kHasLength = 4 };

std::string packSpanColumn(const SpanValue& value, const FileFigure& figure) {
    const auto steps = [&](float number) {
        return stepsOf(static_cast<double>(number), figure.step);
    };
    const bool isAngle = figure.kind == figures::Kind::Angle;
    const bool hasCauses = longestCause(value.causes) != State::Known;
    std::string to(1, static_cast<char>((value.knownMs ? kHasValue : 0) |
                                        (hasCauses ? kHasCauses : 0) | (isAngle ? kHasLength : 0)));
    if (value.knownMs) {
        packUnsigned(to, value.knownMs);
        // Rising, so that differences are not negative.
        const std::int64_t lowest = steps(value.lowest);
        const std::int64_t first = steps(value.percentile1);
        const std::int64_t last = steps(value.percentile99);
        packSigned(to, lowest);
        packUnsigned(to, static_cast<std::uint64_t>(first - lowest));
        packUnsigned(to, static_cast<std::uint64_t>(last - first));
        packUnsigned(to, static_cast<std::uint64_t>(steps(value.highest) - last));
        packFloat(to, value.mean);
        if (isAngle) packFloat(to, value.length);
    }
    if (!hasCauses) return to;
    std::string causes;
    std::uint64_t count = 0;
    for (std::size_t i = 1; i < kFileStates; ++i) {
        if (value.causes[i] == 0) continue;
        causes.push_back(static_cast<char>(i));
        packUnsigned(causes, value.causes[i]);
        ++count;
    }
    packUnsigned(to, count);
    return to + causes;
}

/// Milliseconds of a span; a number that no span can hold fails.
std::uint32_t takeMs(Unpacker& from) {
    const std::uint64_t ms = from.takeUnsigned();
    if (ms > UINT32_MAX) from.fail();
    return static_cast<std::uint32_t>(ms);
}

void takeValue(Unpacker& from, const FileFigure& figure, bool hasLength, SpanValue& value) {
    value.knownMs = takeMs(from);
    const auto inUnits = [&](std::uint64_t steps) {
        return static_cast<float>(static_cast<double>(static_cast<std::int64_t>(steps)) *
                                  figure.step);
    };
    auto steps = static_cast<std::uint64_t>(from.takeSigned());
    value.lowest = inUnits(steps);
    value.percentile1 = inUnits(steps += from.takeUnsigned());
    value.percentile99 = inUnits(steps += from.takeUnsigned());
    value.highest = inUnits(steps += from.takeUnsigned());
    value.mean = from.takeFloat();
    if (hasLength) value.length = from.takeFloat();
    if (value.knownMs == 0 || !std::isfinite(value.mean) || !std::isfinite(value.length) ||
        value.lowest > value.highest) {
        from.fail();
    }
}

void takeCauses(Unpacker& from, SpanValue& value) {
    for (std::uint64_t count = from.takeUnsigned(); count > 0 && !from.failed(); --count) {
        const std::uint8_t state = from.takeByte();
        if (state == 0 || state >= kFileStates) return from.fail();
        value.causes[state] = takeMs(from);
    }
}

}  // namespace

std::string packSpan(const Span& span, const FigureColumns& columns) {
    std::string body;
    packUnsigned(body, static_cast<std::uint64_t>(span.seconds));
    for (const FileFigure& figure : columns.all()) {
        if (!figure.index) continue;
        const SpanValue& value = span.figures[*figure.index];
        const bool isAbsent =
            value.toldMs() == value.causes[static_cast<std::size_t>(State::NotMeasured)];
        if (isAbsent && value.knownMs == 0) continue;
        const std::string column = packSpanColumn(value, figure);
        packUnsigned(body, static_cast<std::uint64_t>(figure.id));
        packUnsigned(body, column.size());
        body += column;
    }
    std::string block(1, kSpanVersion);
    packUnsigned(block, body.size());
    return block + body;
}

std::optional<SpanBlock> SpanBlock::open(std::string_view data) {
    Unpacker from(data);
    const std::uint8_t version = from.takeByte();
    const std::string_view body = from.takeBytes(from.takeUnsigned());
    if (from.failed() || version != kSpanVersion || !from.atEnd()) return std::nullopt;
    Unpacker rest(body);
    SpanBlock block;
    const std::uint64_t seconds = rest.takeUnsigned();
    if (rest.failed() || seconds == 0 || seconds > kLongestSpan) return std::nullopt;
    block.seconds_ = static_cast<std::int64_t>(seconds);
    block.data_ = rest.rest();
    return block;
}

std::optional<SpanValue> SpanBlock::figure(const FileFigure& figure) const {
    Unpacker from(data_);
    while (!from.atEnd()) {
        const std::uint64_t id = from.takeUnsigned();
        const std::string_view bytes = from.takeBytes(from.takeUnsigned());
        if (from.failed()) return std::nullopt;
        if (id != static_cast<std::uint64_t>(figure.id)) continue;
        Unpacker column(bytes);
        const std::uint8_t flags = column.takeByte();
        SpanValue value;
        if (flags & kHasValue) takeValue(column, figure, (flags & kHasLength) != 0, value);
        if (flags & kHasCauses) takeCauses(column, value);
        if (column.failed() || !column.atEnd()) return std::nullopt;
        return value;
    }
    return SpanValue{};
}

}  // namespace history
