// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"

namespace hm16::receiver {

// How wide the channel is that figures are taken from.
enum class ChannelWidth {
    Wide,    // as it comes from the front end
    Narrow,  // for a channel with a strong neighbour 200 kHz away
};

// Lets the channel through as it is or narrowed. Both ways take equally long, so that a change of
// width costs a transient and no time: pilot and data behind it keep their places.
class ChannelFilter {
 public:
    explicit ChannelFilter(const Rates& rates);

    void setWidth(ChannelWidth width) { width_ = width; }
    ChannelWidth width() const { return width_; }

    // Appends the filtered samples to `out`; the first comes when the filter is full.
    void process(std::span<const Sample> in, std::vector<Sample>& out);

    // How many samples later a moment comes out.
    std::size_t delay() const { return delay_; }

    // Of noise behind the narrow filter, as in ChannelShape.
    double roughening() const { return roughening_; }

    // Over so many samples a disturbance is spread.
    std::size_t length() const { return doubledTaps_.size() / 2; }

 private:
    ChannelWidth width_ = ChannelWidth::Wide;
    std::vector<float> doubledTaps_;
    std::size_t delay_;
    double roughening_;
    std::vector<Sample> held_;
};

}  // namespace hm16::receiver
