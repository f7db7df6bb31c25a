// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/stereo_axis.h"

#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr double kTooQuietDb = -50;

// R alone is 0 and 180 degrees at once; hysteresis keeps noise from switching between the two.
constexpr double kFoldDegrees = 175;

}  // namespace

void StereoAxis::add(const AudioPower& power) {
    if (levelDb((power.left + power.right) / 2) < kTooQuietDb) return;
    const double twice = std::atan2(2 * power.cross, power.right - power.left);
    double degrees = twice / 2 * 180 / std::numbers::pi;
    if (degrees < 0) degrees += 180;
    if (degrees > kFoldDegrees) degrees -= 180;
    degrees_ = degrees;
}

}  // namespace hm16::receiver
