// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/small_text.h"

// Numbers become text here and nowhere else: always a point, whatever the locale.
namespace base {

/// Number to text without a leading blank: "5", "-35", "0.5". A float shows up to 7 significant
/// digits, a double up to 15; trailing zeros are cut; from 1e15 on with an exponent ("1.5E+20").
/// At most 28 decimals, so that any text fits. Not-a-number and infinities give "nan", "inf".
SmallText shortText(float value);
SmallText shortText(double value);
SmallText wholeText(std::int64_t value);
template <std::integral T>
SmallText shortText(T value) {
    return wholeText(static_cast<std::int64_t>(value));
}

/// As `shortText`, with a blank in the sign's place for zero and positive values: " 5", "-35".
template <typename T>
SmallText longText(T value) {
    SmallText digits = shortText(value);
    return digits[0] == '-' ? digits : SmallText(" ").append(digits);
}

/// As `longText`, with a blank behind it too, as a printed list has it: " 5 ", "-35 ".
template <typename T>
SmallText printText(T value) {
    return longText(value).append(' ');
}

/// Number by a display mask: `0` is a digit always shown, `#` one shown when needed, then an
/// optional point and up to three `0`; text around it stays ("0.0", "#00", "####0 mts"). Halves
/// are rounded away from zero on the decimal text of `shortText`, so a reading of 0.25 shows 0.3
/// and 2.675 shows 2.68. There is never a "-0.0". From 1e15 on the text of `shortText` stands.
SmallText mask(std::string_view pattern, float value);
SmallText mask(std::string_view pattern, double value);
template <std::integral T>
SmallText mask(std::string_view pattern, T value) {
    return mask(pattern, static_cast<double>(value));
}

/// Name of what belongs to a frequency (units of 100 kHz, .5 for a half step): 985 is "0985",
/// 1025.5 is "1025.5". Files of the program and of our driver libraries are named by it.
SmallText frequencyKey(double frequency);

/// Decimal text with at most `decimals` places, trailing zeros cut, never "-0" and never an
/// exponent; rounded by the exact binary value, as the files of a driver library have it.
/// Not-a-number and infinities give "0".
std::string decimalText(double value, int decimals);

}  // namespace base
