// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/second_block.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "history/packed.h"

namespace history {

namespace {

constexpr char kSecondsVersion = 1;
constexpr std::uint16_t kWhole = 1000;

bool isAbsent(const FigureSecond& second) {
    return second.knownMs == 0 && second.state == State::NotMeasured;
}

/// Which seconds are there: runs of a gap before them and their number.
void packOffsets(std::string& to, std::span<const Second> seconds, std::int64_t minute) {
    std::string runs;
    std::uint64_t count = 0;
    std::int64_t behind = minute;
    for (std::size_t first = 0; first < seconds.size();) {
        std::size_t end = first + 1;
        while (end < seconds.size() && seconds[end].t == seconds[end - 1].t + 1) ++end;
        packUnsigned(runs, static_cast<std::uint64_t>(seconds[first].t - behind));
        packUnsigned(runs, end - first);
        behind = seconds[end - 1].t + 1;
        first = end;
        ++count;
    }
    packUnsigned(to, count);
    to += runs;
}

std::string packColumn(std::span<const Second> seconds, std::size_t index, double step) {
    std::string states;
    std::string values;
    std::int64_t last = 0;
    for (std::size_t first = 0; first < seconds.size();) {
        const FigureSecond& one = seconds[first].figures[index];
        std::size_t end = first;
        for (; end < seconds.size(); ++end) {
            const FigureSecond& next = seconds[end].figures[index];
            if (next.state != one.state || next.knownMs != one.knownMs) break;
            if (next.knownMs == 0) continue;
            const std::int64_t steps = stepsOf(static_cast<double>(next.value), step);
            packSigned(values, steps - last);
            last = steps;
        }
        packUnsigned(states, end - first);
        states.push_back(static_cast<char>(one.state));
        if (one.state != State::Known) packUnsigned(states, one.knownMs);
        first = end;
    }
    return states + values;
}

bool unpackStates(Unpacker& from, std::span<FigureSecond> out) {
    for (std::size_t at = 0; at < out.size();) {
        const std::uint64_t run = from.takeUnsigned();
        const std::uint8_t state = from.takeByte();
        const std::uint64_t known = state == 0 ? kWhole : from.takeUnsigned();
        const bool isPart = state == 0 || known < kWhole;
        if (from.failed() || run == 0 || run > out.size() - at || state >= kFileStates || !isPart) {
            return false;
        }
        for (std::uint64_t i = 0; i < run; ++i) {
            out[at++] = {0, static_cast<std::uint16_t>(known), static_cast<State>(state)};
        }
    }
    return true;
}

bool unpackColumn(std::string_view bytes, double step, std::span<FigureSecond> out) {
    Unpacker from(bytes);
    if (!unpackStates(from, out)) return false;
    // Unsigned, so that a hostile sum wraps without being an overflow.
    std::uint64_t steps = 0;
    for (FigureSecond& second : out) {
        if (second.knownMs == 0) continue;
        steps += static_cast<std::uint64_t>(from.takeSigned());
        second.value =
            static_cast<float>(static_cast<double>(static_cast<std::int64_t>(steps)) * step);
    }
    return !from.failed() && from.atEnd();
}

}  // namespace

std::string packSeconds(std::span<const Second> seconds, const FigureColumns& columns) {
    std::string body;
    if (seconds.empty()) return body;
    const std::int64_t t = seconds.front().t;
    const std::int64_t minute = t - ((t % kMinute) + kMinute) % kMinute;
    packOffsets(body, seconds, minute);
    for (const FileFigure& figure : columns.all()) {
        if (!figure.index) continue;
        const std::size_t index = *figure.index;
        const bool absent = std::ranges::all_of(
            seconds, [&](const Second& second) { return isAbsent(second.figures[index]); });
        if (absent) continue;
        const std::string column = packColumn(seconds, index, figure.step);
        packUnsigned(body, static_cast<std::uint64_t>(figure.id));
        packUnsigned(body, column.size());
        body += column;
    }
    std::string block(1, kSecondsVersion);
    packUnsigned(block, body.size());
    return block + body;
}

std::optional<SecondBlock> SecondBlock::open(std::string_view data) {
    Unpacker from(data);
    const std::uint8_t version = from.takeByte();
    const std::string_view body = from.takeBytes(from.takeUnsigned());
    if (from.failed() || version != kSecondsVersion || !from.atEnd()) return std::nullopt;
    Unpacker rest(body);
    SecondBlock block;
    std::uint64_t at = 0;
    for (std::uint64_t runs = rest.takeUnsigned(); runs > 0 && !rest.failed(); --runs) {
        const std::uint64_t gap = rest.takeUnsigned();
        const std::uint64_t run = rest.takeUnsigned();
        if (gap > kMinute || run == 0 || run > kMinute || at + gap + run > kMinute) {
            return std::nullopt;
        }
        at += gap;
        for (std::uint64_t i = 0; i < run; ++i) {
            block.offsets_[static_cast<std::size_t>(block.size_++)] =
                static_cast<std::uint8_t>(at++);
        }
    }
    if (rest.failed() || block.size_ == 0) return std::nullopt;
    block.data_ = rest.rest();
    return block;
}

bool SecondBlock::column(const FileFigure& figure, std::span<FigureSecond> out) const {
    out = out.first(static_cast<std::size_t>(size_));
    std::ranges::fill(out, FigureSecond{});
    Unpacker from(data_);
    while (!from.atEnd()) {
        const std::uint64_t id = from.takeUnsigned();
        const std::string_view bytes = from.takeBytes(from.takeUnsigned());
        if (from.failed()) break;
        if (id != static_cast<std::uint64_t>(figure.id)) continue;
        if (unpackColumn(bytes, figure.step, out)) return true;
        from.fail();
    }
    if (!from.failed()) return true;
    std::ranges::fill(out, FigureSecond{0, 0, State::Gap});
    return false;
}

std::vector<Second> secondsOf(const SecondBlock& block, const FigureColumns& columns, int station,
                              std::int64_t minute, int epoch) {
    std::vector<Second> seconds(static_cast<std::size_t>(block.size()));
    for (int i = 0; i < block.size(); ++i) {
        Second& second = seconds[static_cast<std::size_t>(i)];
        second.t = minute + block.offset(i);
        second.station = station;
        second.epoch = epoch;
    }
    std::array<FigureSecond, kMinute> column;
    for (const FileFigure& figure : columns.all()) {
        if (!figure.index) continue;
        block.column(figure, column);
        for (std::size_t i = 0; i < seconds.size(); ++i) {
            seconds[i].figures[*figure.index] = column[i];
        }
    }
    return seconds;
}

}  // namespace history
