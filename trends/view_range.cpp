// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/view_range.h"

#include <algorithm>
#include <array>

namespace hmonitor {

namespace {

/// More than a window has pixels.
constexpr std::int64_t kMostColumns = 2000;
constexpr std::int64_t kMinuteMs = 60 * kSecondMs;

constexpr std::array<std::int64_t, 19> kLengths = {
    kSecondMs,      2 * kSecondMs, 5 * kSecondMs, 10 * kSecondMs, 20 * kSecondMs,
    kMinuteMs,      2 * kMinuteMs, 5 * kMinuteMs, 10 * kMinuteMs, 20 * kMinuteMs,
    30 * kMinuteMs, kHourMs,       2 * kHourMs,   3 * kHourMs,    6 * kHourMs,
    12 * kHourMs,   kDayMs,        2 * kDayMs,    5 * kDayMs};

std::int64_t floorTo(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

}  // namespace

AskedRange askedRange(std::int64_t fromMs, std::int64_t toMs) {
    const std::int64_t span = std::max(toMs - fromMs, kSecondMs);
    const auto found = std::ranges::find_if(
        kLengths, [span](std::int64_t each) { return span / each <= kMostColumns; });
    const std::int64_t each = found == kLengths.end() ? kLengths.back() : *found;
    return {floorTo(fromMs, each), floorTo(std::max(toMs, fromMs + 1) - 1, each) + each, each};
}

}  // namespace hmonitor
