// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace hmonitor {

namespace {

std::int32_t saturate32(double whole) {
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(whole)) return 0;
    return static_cast<std::int32_t>(std::clamp(whole, kLow, kHigh));
}

}  // namespace

std::int32_t toWhole(double value) {
    const double floored = std::floor(value);
    const double rest = value - floored;
    const bool isOdd = std::fmod(floored, 2) != 0;
    const bool up = rest > 0.5 || (rest == 0.5 && isOdd);
    return saturate32(up ? floored + 1 : floored);
}

std::int32_t floorWhole(double value) {
    return saturate32(std::floor(value));
}

std::int32_t wholeTowardZero(double value) {
    return saturate32(std::trunc(value));
}

std::int16_t loopStep(double value) {
    return std::max<std::int16_t>(1, saturate16(toWhole(value)));
}

std::int32_t demoFigure(double random, double span, double held, double offset) {
    return floorWhole((random * span + held + offset) / 2);
}

float demoPhase(double random, float last) {
    constexpr double kShareDegrees = 90;
    constexpr float kOffsetDegrees = 5;
    return (static_cast<float>(std::floor(random * kShareDegrees)) + last + kOffsetDegrees) / 2;
}

SmallText frequencyFileName(double frequency, std::string_view ending) {
    return frequencyKey(frequency).append(ending);
}

}  // namespace hmonitor
