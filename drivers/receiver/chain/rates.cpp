// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/rates.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

std::size_t stepDown(double from, double lowest) {
    return static_cast<std::size_t>(std::max(1.0, std::floor(from / lowest)));
}

std::size_t stepNear(double from, double wanted) {
    return static_cast<std::size_t>(std::max(1.0, std::round(from / wanted)));
}

}  // namespace

Rates planRates(double sourceHz, Domain domain) {
    Rates rates;
    rates.source = sourceHz;
    // A tolerance of 0.05 percent, so that an error of the clock does not change the plan.
    rates.channelStep = domain == Domain::Band ? stepDown(sourceHz, 499.75e3) : 1;
    rates.channel = sourceHz / static_cast<double>(rates.channelStep);
    rates.compositeStep = stepDown(rates.channel, 249.9e3);
    rates.composite = rates.channel / static_cast<double>(rates.compositeStep);
    rates.audioStep = stepDown(rates.composite, 47.95e3);
    rates.audio = rates.composite / static_cast<double>(rates.audioStep);
    rates.narrowStep = stepNear(rates.composite, 12.5e3);
    rates.narrow = rates.composite / static_cast<double>(rates.narrowStep);
    rates.pilotStep = stepNear(rates.narrow, 500);
    rates.pilot = rates.narrow / static_cast<double>(rates.pilotStep);
    return rates;
}

}  // namespace hm16::receiver
