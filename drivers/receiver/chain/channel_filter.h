// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"

namespace hm16::receiver {

// The width of the channel in which figures are measured.
enum class ChannelWidth {
    Wide,    // as it leaves the front end
    Narrow,  // for a channel with a strong neighbour 200 kHz away
};

// Passes the channel unchanged or narrowed. Both paths have the same delay, so that a change of
// width causes a transient but no time shift for pilot and data.
class ChannelFilter {
 public:
    explicit ChannelFilter(const Rates& rates);

    void setWidth(ChannelWidth width) { width_ = width; }
    ChannelWidth width() const { return width_; }

    // Appends the filtered samples to `out`; the first comes when the filter is full.
    void process(std::span<const Sample> in, std::vector<Sample>& out);

    // The delay in samples.
    std::size_t delay() const { return delay_; }

    // The noise parameters of the narrow filter, as in ChannelShape.
    double roughening() const { return roughening_; }

    // The number of samples over which a disturbance is spread.
    std::size_t length() const { return doubledTaps_.size() / 2; }

 private:
    ChannelWidth width_ = ChannelWidth::Wide;
    std::vector<float> doubledTaps_;
    std::size_t delay_;
    double roughening_;
    std::vector<Sample> held_;
};

}  // namespace hm16::receiver
