// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/half_step_text.h"

#include "core/numbers.h"

namespace hmonitor {

namespace {

/// Up to this value four digits are a frequency in the upper half of the band, without a half step.
constexpr double kLastWithoutHalfStep = 8700;

HalfStepText cutLast(std::string_view typed) {
    return {typed.substr(0, typed.size() - 1), HalfStep::Yes};
}

}  // namespace

HalfStepText splitDigits(std::string_view typed) {
    if (typed.empty() || typed.back() != '5') return {typed};
    const bool isFourDigits = typed.size() == 4 && valueOf(typed) > kLastWithoutHalfStep;
    const bool isFiveDigits = typed.size() == 5;
    return isFourDigits || isFiveDigits ? cutLast(typed) : HalfStepText{typed};
}

HalfStepText splitMegahertz(std::string_view typed) {
    const std::size_t point = typed.find('.');
    if (point == std::string_view::npos) return {typed};
    const std::string_view behind = typed.substr(point + 1);
    return behind.size() >= 2 && behind[1] == '5' ? cutLast(typed) : HalfStepText{typed};
}

}  // namespace hmonitor
