// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/query_rows.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <system_error>

#include "history/retention.h"

namespace history {

namespace {

constexpr std::int64_t kLongestDaySpan = 25 * kHour;

std::int64_t stepSeconds(Step step) {
    constexpr std::int64_t kSteps[] = {1, kMinute, kHour, kDayStep};
    return kSteps[static_cast<std::size_t>(step)];
}

/// The one second as a span of its own.
SpanValue spanOfSecond(const FigureSecond& second) {
    SpanValue value;
    value.lowest = value.mean = value.highest = second.value;
    value.percentile1 = value.percentile99 = second.value;
    value.knownMs = second.knownMs;
    if (second.knownMs < 1000) {
        value.causes[static_cast<std::size_t>(second.state)] = 1000u - second.knownMs;
    }
    return value;
}

}  // namespace

Step stepFor(double secondsPerColumn) {
    if (secondsPerColumn < static_cast<double>(kMinute)) return Step::Second;
    if (secondsPerColumn < static_cast<double>(kHour)) return Step::Minute;
    return secondsPerColumn < static_cast<double>(kDayStep) ? Step::Hour : Step::Day;
}

QueryRows::QueryRows(const std::filesystem::path& folder, const char* vfs, int station,
                     std::span<const std::size_t> figures)
    : folder_(folder), vfs_(vfs), station_(station), figures_(figures.begin(), figures.end()) {
    try {
        database_ = std::make_unique<Database>(folder_ / kIndexName, Access::Read, vfs_);
        index_ = std::make_unique<IndexRows>(*database_);
    } catch (const DatabaseFault&) {
        index_.reset();
    }
}

QueryRows::~QueryRows() = default;

std::int64_t QueryRows::beginOf(Step step) {
    const auto first = index_ ? index_->first(station_, stepSeconds(step)) : std::nullopt;
    return first.value_or(INT64_MAX);
}

std::int64_t QueryRows::endOf(Step step) {
    const auto last = index_ ? index_->last(station_, stepSeconds(step)) : std::nullopt;
    if (!last) return INT64_MIN;
    return step == Step::Day ? boundsOfDay(*last).end : *last + stepSeconds(step);
}

void QueryRows::gather(Step step, std::int64_t begin, std::int64_t end, const Take& take) {
    try {
        if (step == Step::Second) {
            gatherSeconds(begin, end, false, take);
        } else {
            gatherSpans(step, begin, end, true, take);
        }
    } catch (const DatabaseFault&) {
        // The recorder finds the damage; what could be read is told.
    }
}

void QueryRows::gatherSeconds(std::int64_t begin, std::int64_t end, bool onlyFiles,
                              const Take& take) {
    while (begin < end) {
        const std::int64_t dayEnd = std::min(end, boundsOfDay(begin).end);
        const auto file = folder_ / (CivilDay::of(begin).text() + std::string(kDayEnding));
        std::error_code unknown;
        const auto there = std::filesystem::status(file, unknown).type();
        if (there != std::filesystem::file_type::not_found) {
            readDay(file, begin, dayEnd, take);
        } else if (!onlyFiles) {
            gatherSpans(Step::Minute, begin, dayEnd, true, take);
        }
        begin = dayEnd;
    }
}

void QueryRows::readDay(const std::filesystem::path& file, std::int64_t begin, std::int64_t end,
                        const Take& take) {
    try {
        Database database(file, Access::Read, vfs_);
        DayRows(database).seconds(
            station_, begin, end, figures_,
            [&](std::int64_t t, int epoch, std::size_t which, const FigureSecond& second) {
                take({which, t, t + 1, epoch, spanOfSecond(second)});
            });
    } catch (const DatabaseFault&) {
        // As above.
    }
}

/// Spans of the step, coarser ones before the first of it (they are kept for longer), and behind
/// the last of it, where they are not made yet, what there is of finer ones.
void QueryRows::gatherSpans(Step step, std::int64_t begin, std::int64_t end, bool coarserToo,
                            const Take& take) {
    if (!index_) return gatherSeconds(begin, end, true, take);
    const std::int64_t first = beginOf(step);
    if (coarserToo && step != Step::Day && begin < first) {
        const auto coarser = static_cast<Step>(static_cast<int>(step) + 1);
        // One that reaches over the first fine one tells of time that the fine ones do not have:
        // nobody recorded then.
        gatherSpans(coarser, begin, std::min(end, first), true, [&](const Piece& piece) {
            if (piece.end <= first) take(piece);
        });
        begin = std::min(end, first);
    }
    if (begin >= end) return;
    const std::int64_t length = step == Step::Day ? kLongestDaySpan : stepSeconds(step);
    index_->spans(station_, stepSeconds(step), begin - length + 1, end, figures_,
                  [&](std::int64_t t, std::int64_t seconds, int epoch, std::size_t which,
                      const std::optional<SpanValue>& value) {
                      Piece piece{which, t, t + seconds, epoch, value.value_or(SpanValue{})};
                      const auto wholeMs = static_cast<std::uint32_t>(seconds * 1000);
                      const State why = value ? State::NotMeasured : State::Gap;
                      if (piece.value.toldMs() == 0) {
                          piece.value.causes[static_cast<std::size_t>(why)] = wholeMs;
                      }
                      if (piece.end > begin) take(piece);
                  });
    const std::int64_t rest = std::max(begin, endOf(step));
    if (rest >= end) return;
    if (step == Step::Minute) {
        gatherSeconds(rest, end, true, take);
    } else {
        gatherSpans(static_cast<Step>(static_cast<int>(step) - 1), rest, end, false, take);
    }
}

}  // namespace history
