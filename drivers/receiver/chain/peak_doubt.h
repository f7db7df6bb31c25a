// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// How far another station may have moved the deviation that is read.
//
// What comes in on one side of a carrier moves its frequency and its envelope alike: the logarithm
// of the envelope, taken as if it were the phase, gives a twin of the error, a quarter of a turn
// beside it. The station's own envelope does not move.
class PeakDoubt {
 public:
    explicit PeakDoubt(const Rates& rates, PeakEdge edge = PeakEdge::At80);

    // Takes one sample more than steps are looked at.
    void add(std::span<const float> envelope);

    // The largest in Hz that the twin was since the last call.
    double takeHz();

 private:
    float hzPerStep_;
    RealDecimator lowPass_;
    std::vector<float> steps_;
    std::vector<float> twin_;
    double highest_ = 0;
};

}  // namespace hm16::receiver
