// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/peak_doubt.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace hm16::receiver {

PeakDoubt::PeakDoubt(const Rates& rates, PeakEdge edge)
    : hzPerStep_(static_cast<float>(rates.channel / (2 * std::numbers::pi))),
      lowPass_(compositeTaps(rates.channel, Droop::None, edge), rates.compositeStep) {}

void PeakDoubt::add(std::span<const float> envelope) {
    constexpr float kNothing = 1e-20F;
    steps_.clear();
    twin_.clear();
    for (std::size_t n = 0; n + 1 < envelope.size(); ++n) {
        const float middle = (envelope[n] + envelope[n + 1]) / 2 + kNothing;
        steps_.push_back(hzPerStep_ * (envelope[n + 1] - envelope[n]) / middle);
    }
    lowPass_.process(steps_, twin_);
    for (const float hz : twin_) highest_ = std::max(highest_, std::fabs(static_cast<double>(hz)));
}

double PeakDoubt::takeHz() {
    return std::exchange(highest_, 0.0);
}

}  // namespace hm16::receiver
