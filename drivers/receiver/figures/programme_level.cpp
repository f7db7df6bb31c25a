// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/programme_level.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr double kFallDbPerSecond = 20 / 1.7;
constexpr double kStepSeconds = 0.005;
const double kFall = std::pow(10.0, -kFallDbPerSecond* kStepSeconds / 10);

}  // namespace

void ProgrammeLevel::add(double meanSquare) {
    recent_[next_] = meanSquare;
    next_ = (next_ + 1) % recent_.size();
    double mean = 0;
    for (const double value : recent_) mean += value;
    mean /= static_cast<double>(recent_.size());
    shown_ = std::max(mean, shown_ * kFall);
}

}  // namespace hm16::receiver
