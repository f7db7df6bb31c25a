// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/front_end.h"

#include <algorithm>
#include <cstdint>

#include "drivers/receiver/chain/peak_noise.h"
#include "drivers/receiver/dsp/filter_design.h"

namespace hm16::receiver {
namespace {

constexpr double kWideFlatHz = 190e3;
constexpr double kWideStopHz = 290e3;

// Half width of the flat part; at low sample rates what the rate allows.
double flatFor(double channelHz) {
    return std::min(kWideFlatHz, 0.39 * channelHz);
}

std::vector<double> wideTaps(const Rates& rates) {
    const double flat = flatFor(rates.channel);
    // Aliases may reach down to the edge of the flat part, but not into it.
    const double stop = std::min(kWideStopHz, rates.channel - flat);
    return designLowPass(rates.source, flat, stop);
}

}  // namespace

FrontEnd::FrontEnd(const Rates& rates, double offsetHz)
    : step_(rates.channelStep),
      taps_(wideTaps(rates).size()),
      mixer_(offsetHz / rates.source),
      decimator_(wideTaps(rates), rates.channelStep) {
    shape_.flatHz = flatFor(rates.channel);
    shape_.noiseHz = noiseBandwidthHz(wideTaps(rates), rates.source);
    shape_.roughening = rougheningOf(wideTaps(rates), 2 * rates.channelStep);
    shape_.delaySeconds = decimator_.delay() / rates.source;
}

void FrontEnd::process(std::span<const Sample> in, std::vector<Sample>& channel) {
    mixed_.assign(in.begin(), in.end());
    mixer_.process(mixed_);
    decimator_.process(mixed_, channel);
}

// Sample k of the channel is made of those from k * step_ on.
FrontEnd::Reach FrontEnd::reach(std::uint64_t from, std::uint64_t to) const {
    const std::uint64_t first = from < taps_ ? 0 : (from - taps_) / step_ + 1;
    return {first, (to + step_ - 1) / step_};
}

}  // namespace hm16::receiver
