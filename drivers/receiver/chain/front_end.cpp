// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/front_end.h"

#include <algorithm>

#include "drivers/receiver/chain/peak_noise.h"
#include "drivers/receiver/dsp/filter_design.h"

namespace hm16::receiver {
namespace {

constexpr double kWideFlatHz = 190e3;
constexpr double kWideStopHz = 290e3;
constexpr double kNarrowFlatHz = 90e3;
constexpr double kNarrowStopHz = 130e3;
constexpr double kNarrowStopbandDb = 60;

// At low rates as wide as the rate allows.
double flatFor(double channelHz) {
    return std::min(kWideFlatHz, 0.39 * channelHz);
}

std::vector<double> wideTaps(const Rates& rates) {
    const double flat = flatFor(rates.channel);
    // What folds over from beyond half the rate may reach down to the flat part, not into it.
    const double stop = std::min(kWideStopHz, rates.channel - flat);
    return designLowPass(rates.source, flat, stop);
}

std::vector<double> narrowTaps(const Rates& rates) {
    const double flat = std::min(kNarrowFlatHz, 0.3 * rates.channel);
    const double stop = std::min(kNarrowStopHz, 0.48 * rates.channel);
    return designLowPass(rates.channel, flat, stop, kNarrowStopbandDb);
}

}  // namespace

FrontEnd::FrontEnd(const Rates& rates, double offsetHz)
    : flatHz_(flatFor(rates.channel)),
      noiseHz_(noiseBandwidthHz(wideTaps(rates), rates.source)),
      mixer_(offsetHz / rates.source),
      decimator_(wideTaps(rates), rates.channelStep),
      narrow_(narrowTaps(rates), 1) {}

void FrontEnd::process(std::span<const Sample> in, std::vector<Sample>& wide,
                       std::vector<Sample>& channel) {
    mixed_.assign(in.begin(), in.end());
    mixer_.process(mixed_);
    const std::size_t before = wide.size();
    decimator_.process(mixed_, wide);
    const auto fresh = std::span(wide).subspan(before);
    if (width_ == ChannelWidth::Wide) {
        channel.insert(channel.end(), fresh.begin(), fresh.end());
        return;
    }
    narrow_.process(fresh, channel);
}

}  // namespace hm16::receiver
