// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/programme_level.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr double kFallDbPerSecond = 20 / 1.7;
const double kFall = std::pow(10.0, -kFallDbPerSecond* ProgrammeLevel::kStepSeconds / 10);

// A raised cosine: it lets through next to nothing of a tone's own beat.
std::array<double, ProgrammeLevel::kSteps> raisedCosine() {
    std::array<double, ProgrammeLevel::kSteps> weights{};
    for (std::size_t n = 0; n < weights.size(); ++n) {
        const double place = (static_cast<double>(n) + 0.5) / static_cast<double>(weights.size());
        weights[n] = (1 - std::cos(2 * std::numbers::pi * place)) / ProgrammeLevel::kSteps;
    }
    return weights;
}

}  // namespace

void ProgrammeLevel::add(double meanSquare) {
    recent_[next_] = meanSquare;
    next_ = (next_ + 1) % recent_.size();
    static const auto kWeights = raisedCosine();
    double mean = 0;
    for (std::size_t n = 0; n < recent_.size(); ++n)
        mean += kWeights[n] * recent_[(next_ + n) % recent_.size()];
    shown_ = std::max(mean, shown_ * kFall);
}

}  // namespace hm16::receiver
