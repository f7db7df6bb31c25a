// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// From the channel to its instantaneous frequency, and from there to the multiplex in Hz:
// low-passed at 80 kHz and freed from the droop of a discriminator, which averages over one sample.
class Demodulator {
 public:
    explicit Demodulator(const Rates& rates);

    // Appends to all three: `frequency` in Hz and `envelope` sample by sample at the channel's
    // rate, `composite` in Hz at the multiplex's rate.
    void process(std::span<const Sample> channel, std::vector<float>& frequency,
                 std::vector<float>& envelope, std::vector<float>& composite);

 private:
    double channelHz_;
    RealDecimator lowPass_;
    std::vector<Sample> held_;
};

// The low-pass of the multiplex at `rateHz`; the droop of a discriminator is taken out if asked.
enum class Droop { None, Discriminator };
std::vector<double> compositeTaps(double rateHz, Droop droop);

}  // namespace hm16::receiver
