// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "core/int16.h"
#include "core/small_text.h"

// The rules by which numbers become text, text becomes numbers, and fractions become whole
// numbers. They are the same in every locale, and none of them allocates. Nothing else in the
// program formats, parses or rounds on its own.

namespace hmonitor {

using base::frequencyKey;
using base::longText;
using base::mask;
using base::printText;
using base::shortText;
using base::valueOf;
using base::wholeText;

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

/// `frequencyKey` with an ending: frequencyFileName(875, ".res") is "0875.res".
SmallText frequencyFileName(double frequency, std::string_view ending);

}  // namespace hmonitor
