// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

#include "core/int16.h"
#include "core/small_text.h"

// The rules by which numbers become text, text becomes numbers, and fractions become whole
// numbers. They are the same in every locale, and none of them allocates. Nothing else in the
// program formats, parses or rounds on its own.

namespace hmonitor {

/// The number that a text begins with: blanks skipped, a sign, digits, one point, digits. No
/// exponent, no hexadecimal, no words; a tab is no blank. Anything else, a lone sign or point
/// included, is 0. Beyond the range of a double the largest one stands.
double valueOf(std::string_view text);

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

/// Nearest whole number, halves to the even one. These three saturate at the ends of 32 bits and
/// take not-a-number as 0.
std::int32_t toWhole(double value);
/// Whole part towards minus infinity.
std::int32_t floorWhole(double value);
/// Whole part towards zero.
std::int32_t wholeTowardZero(double value);

/// Step of a loop: the nearest whole number, but at least 1, so that the loop ends.
std::int16_t loopStep(double value);

/// Simulated level or modulation: half of a random share of `span` plus what is held plus an
/// offset, rounded down as one quotient. `random` is from 0 up to 1.
std::int32_t demoFigure(double random, double span, double held, double offset);
/// Simulated phase in degrees: only the random share of 90 is rounded down.
float demoPhase(double random, float last);

/// Name part of a file that belongs to a frequency (units of 100 kHz, .5 for a half step):
/// 985 is "0985", 1025.5 is "1025.5".
SmallText frequencyKey(double frequency);
/// `frequencyKey` with an ending: frequencyFileName(875, ".res") is "0875.res".
SmallText frequencyFileName(double frequency, std::string_view ending);

}  // namespace hmonitor
