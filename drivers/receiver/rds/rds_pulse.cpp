// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_pulse.h"

#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

// Impulse response of the shaping filter: cos(4 pi t) * 2a / (a^2 - b^2), a = pi / 4, b = 2 pi t.
double shaped(double t) {
    const double a = std::numbers::pi / 4;
    const double b = 2 * std::numbers::pi * std::fabs(t);
    if (std::fabs(a - b) < 1e-6) return 2.0 + 2 / std::numbers::pi * 1e-6;
    return std::cos(4 * std::numbers::pi * t) * 2 * a / (a * a - b * b);
}

}  // namespace

double rdsPulse(double bits) {
    if (std::fabs(bits) >= kRdsPulseReach) return 0;
    const double cut = std::cos(std::numbers::pi / 2 * bits / kRdsPulseReach);
    return (shaped(bits + 0.25) - shaped(bits - 0.25)) * cut * cut;
}

}  // namespace hm16::receiver
