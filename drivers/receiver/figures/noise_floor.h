// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/receiver/figures/ring.h"

namespace hm16::receiver {

// A channel's noise in the pauses of the programme: the 5th percentile of the levels of 50 ms
// blocks over the last 20 seconds. Never below the true noise, but above it if the programme has no
// pauses.
class NoiseFloor {
 public:
    // Mean square of one block.
    void add(double meanSquare) { blocks_.add(meanSquare); }

    // Level in dB; 0, which is "not known", in the first second.
    double db() const;

 private:
    Ring blocks_{400};
};

}  // namespace hm16::receiver
