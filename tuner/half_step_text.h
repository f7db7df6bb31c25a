// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "core/stored_frequency.h"

namespace hmonitor {

/// A typed frequency: the text before the digit for the half step of 50 kHz, and whether there was
/// such a digit.
struct HalfStepText {
    std::string_view text;
    HalfStep half = HalfStep::No;
};

/// Digits without a point, one byte a character. A last "5" asks for the half step when it is the
/// fifth character, or the fourth of a number over 8700: below that, four digits are a frequency
/// of their own ("1025", "1075"). The answer looks into `typed`.
HalfStepText splitDigits(std::string_view typed);

/// Megahertz with a point, one byte a character. A "5" in the second place behind the first point
/// asks for the half step, and the last character of all is cut. The answer looks into `typed`.
HalfStepText splitMegahertz(std::string_view typed);

}  // namespace hmonitor
