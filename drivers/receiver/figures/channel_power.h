// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <span>
#include <vector>

#include "drivers/receiver/figures/ring.h"
#include "drivers/receiver/figures/spectrum.h"

namespace hm16::receiver {

// The distribution of power in the channel and around it.
class ChannelPower {
 public:
    // `channelHz`: rate of the samples.
    explicit ChannelPower(double channelHz);

    // Takes samples of the channel, and uses half of them.
    void add(std::span<const std::complex<float>> channel);

    // Ends a slot: what was added counts in the mean of the last half second.
    void endSlot();

    // Ends a slot that does not count.
    void forgetSlot();

    // Mean power within 100 kHz of the centre; full scale is 1.
    double inChannel() const { return inside_; }

    // The same over the last 200 ms.
    double lately() const { return lately_.mean(); }

    // Power of a strong neighbour 200 kHz away as a share of the channel's own. The station's own
    // sidebands are equal on both sides, so only the difference between the sides counts, or what
    // is too much for any station.
    double neighbour() const;

 private:
    double between(const std::vector<double>& power, double fromHz, double toHz) const;

    double channelHz_;
    Spectrum spectrum_;
    std::vector<std::complex<float>> held_;
    std::size_t skip_ = 0;
    std::vector<double> sum_;
    std::vector<double> mean_;
    std::size_t looks_ = 0;
    double inside_ = 0;
    Ring lately_{4};
};

}  // namespace hm16::receiver
