// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>

namespace hmonitor {

/// The nearest 16-bit number: sums that leave the range stay at its end, they never wrap.
constexpr std::int16_t saturate16(std::int64_t value) {
    constexpr std::int64_t kLow = std::numeric_limits<std::int16_t>::min();
    constexpr std::int64_t kHigh = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(value < kLow ? kLow : value > kHigh ? kHigh : value);
}

/// A 16-bit counter or figure. Arithmetic on it is plain `int`; storing the result saturates:
/// `peak = peak + 5` stays at 32767.
class Int16 {
 public:
    constexpr Int16() = default;
    template <std::integral T>
    constexpr Int16(T value) : value_(saturate16(static_cast<std::int64_t>(value))) {}
    template <std::floating_point T>
    Int16(T) = delete;  // say which rounding: toWhole, floorWhole, wholeTowardZero

    constexpr operator int() const { return value_; }

    constexpr Int16& operator+=(int other) { return *this = Int16(std::int64_t{value_} + other); }
    constexpr Int16& operator-=(int other) { return *this = Int16(std::int64_t{value_} - other); }
    constexpr Int16& operator*=(int other) { return *this = Int16(std::int64_t{value_} * other); }
    constexpr Int16& operator++() { return *this += 1; }
    constexpr Int16& operator--() { return *this -= 1; }

 private:
    std::int16_t value_ = 0;
};

}  // namespace hmonitor
