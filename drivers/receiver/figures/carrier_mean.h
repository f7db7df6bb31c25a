// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>

namespace hm16::receiver {

// The carrier's deviation: the mean of the multiplex over one second, weighted with a raised
// cosine, for under even weights a strong 30 Hz tone would pull the carrier about by hundreds of
// Hz.
class CarrierMean {
 public:
    // Mean of one slot in Hz.
    void add(double meanHz);

    // Mean over what came in the last second, 0 before anything came.
    double hz() const;

 private:
    std::deque<double> slots_;
};

}  // namespace hm16::receiver
