// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// How far another station may have falsified the deviation.
//
// A signal on one side of a carrier changes frequency and envelope alike: the logarithm of the
// envelope, treated as a phase, gives a copy of the frequency error that is a quarter of a turn
// away. The station itself does not change the envelope.
class PeakDoubt {
 public:
    explicit PeakDoubt(const Rates& rates, PeakEdge edge = PeakEdge::At80);

    // Takes one sample more than there are steps between them.
    void add(std::span<const float> envelope);

    // The largest value of that copy since the last call, in Hz.
    double takeHz();

 private:
    float hzPerStep_;
    RealDecimator lowPass_;
    std::vector<float> steps_;
    std::vector<float> twin_;
    double highest_ = 0;
};

}  // namespace hm16::receiver
