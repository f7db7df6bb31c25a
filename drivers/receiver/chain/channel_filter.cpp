// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/channel_filter.h"

#include <algorithm>

#include "drivers/receiver/chain/peak_noise.h"
#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {
namespace {

// Wide enough for the sidebands of a stereo programme with 75 kHz of deviation. What a neighbour
// adds within it is estimated from the envelope.
constexpr double kNarrowFlatHz = 110e3;
constexpr double kNarrowStopHz = 150e3;
constexpr double kNarrowStopbandDb = 60;

std::vector<double> narrowTaps(const Rates& rates) {
    const double flat = std::min(kNarrowFlatHz, 0.3 * rates.channel);
    const double stop = std::min(kNarrowStopHz, 0.48 * rates.channel);
    return designLowPass(rates.channel, flat, stop, kNarrowStopbandDb);
}

}  // namespace

ChannelFilter::ChannelFilter(const Rates& rates) {
    const std::vector<double> taps = narrowTaps(rates);
    delay_ = taps.size() / 2;
    roughening_ = rougheningOf(taps, 2);
    const std::size_t floats =
        (2 * taps.size() + kKernelFloats - 1) / kKernelFloats * kKernelFloats;
    doubledTaps_.assign(floats, 0.0F);
    for (std::size_t n = 0; n < taps.size(); ++n)
        doubledTaps_[2 * n] = doubledTaps_[2 * n + 1] = static_cast<float>(taps[n]);
}

void ChannelFilter::process(std::span<const Sample> in, std::vector<Sample>& out) {
    held_.insert(held_.end(), in.begin(), in.end());
    if (held_.size() < length()) return;
    const std::size_t count = held_.size() - length() + 1;
    if (width_ == ChannelWidth::Wide) {
        const auto from = held_.begin() + static_cast<std::ptrdiff_t>(delay_);
        out.insert(out.end(), from, from + static_cast<std::ptrdiff_t>(count));
    } else {
        const std::size_t before = out.size();
        out.resize(before + count);
        filterComplex(reinterpret_cast<const float*>(held_.data()), doubledTaps_.data(),
                      doubledTaps_.size(), 1, count, reinterpret_cast<float*>(&out[before]));
    }
    held_.erase(held_.begin(), held_.begin() + static_cast<std::ptrdiff_t>(count));
}

}  // namespace hm16::receiver
