// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"
#include "drivers/receiver/dsp/mixer.h"

namespace hm16::receiver {

// The properties of the filter before a channel's samples.
struct ChannelShape {
    double flatHz = 0;   // flat to this far from the centre
    double noiseHz = 0;  // noise bandwidth
    // Mean square of the second difference of noise over two samples, as a share of its variance.
    double roughening = 1;
    double delaySeconds = 0;  // the delay relative to the source
};

// From the samples of the band to those of one channel around 0 Hz. Flat to 190 kHz on each side: a
// filter that cut the sidebands of strong modulation would lower the measured peak and modulate the
// envelope.
class FrontEnd {
 public:
    // `offsetHz`: the position of the channel in the samples.
    FrontEnd(const Rates& rates, double offsetHz);

    // Appends the channel's samples.
    void process(std::span<const Sample> in, std::vector<Sample>& channel);

    const ChannelShape& shape() const { return shape_; }

    // The channel's samples that some samples of the band affect: from the first to one past the
    // last.
    struct Reach {
        std::uint64_t from = 0;
        std::uint64_t to = 0;
    };
    Reach reach(std::uint64_t from, std::uint64_t to) const;

 private:
    ChannelShape shape_;
    std::size_t step_;
    std::size_t taps_;
    Mixer mixer_;
    ComplexDecimator decimator_;
    std::vector<Sample> mixed_;
};

}  // namespace hm16::receiver
