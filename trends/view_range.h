// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace hmonitor {

// Milliseconds.
inline constexpr std::int64_t kSecondMs = 1000;
inline constexpr std::int64_t kHourMs = 3600 * kSecondMs;
inline constexpr std::int64_t kDayMs = 24 * kHourMs;
inline constexpr std::int64_t kShortestView = 10 * kSecondMs;
inline constexpr std::int64_t kLongestView = 3653 * kDayMs;  ///< ten years

/// What is asked of the store for a view: columns of one round length that begin at round times, so
/// that each of them is the same whatever part of it is shown.
struct AskedRange {
    std::int64_t fromMs = 0;
    std::int64_t toMs = 0;
    std::int64_t eachMs = kSecondMs;
    int columns() const { return static_cast<int>((toMs - fromMs) / eachMs); }
    bool operator==(const AskedRange&) const = default;
};

/// The range around a view, in at most about 2,000 columns and in none shorter than a second.
AskedRange askedRange(std::int64_t fromMs, std::int64_t toMs);

}  // namespace hmonitor
