// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"
#include "drivers/receiver/dsp/mixer.h"

namespace hm16::receiver {

// How wide the channel filter is.
enum class ChannelWidth {
    // Flat to 190 kHz on each side: a filter that cuts the sidebands of strong modulation reads
    // the peak low and makes the envelope vary where the air did not.
    Wide,
    // For a channel with a strong neighbour 200 kHz away.
    Narrow,
};

// From the samples of the band to the tuned channel around 0 Hz.
class FrontEnd {
 public:
    // `offsetHz`: where the channel stands in the samples.
    FrontEnd(const Rates& rates, double offsetHz);

    void setWidth(ChannelWidth width) { width_ = width; }
    ChannelWidth width() const { return width_; }

    // Appends the channel's samples: in front of the narrow filter to `wide`, behind the filter in
    // use to `channel`.
    void process(std::span<const Sample> in, std::vector<Sample>& wide,
                 std::vector<Sample>& channel);

    // Flat to this far from the carrier.
    double flatHz() const { return flatHz_; }

    // Noise bandwidth of the wide filter.
    double noiseHz() const { return noiseHz_; }

 private:
    ChannelWidth width_ = ChannelWidth::Wide;
    double flatHz_;
    double noiseHz_;
    Mixer mixer_;
    ComplexDecimator decimator_;
    ComplexDecimator narrow_;
    std::vector<Sample> mixed_;
};

}  // namespace hm16::receiver
