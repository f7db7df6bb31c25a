// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "drivers/receiver/chain/tuned_station.h"
#include "drivers/receiver/synth/band_generator.h"

namespace hm16::receiver {

// Sanitizers make the chain twenty times slower: with them each figure is checked once, not for
// every kind of samples.
#if defined(HMONITOR_SANITIZED_THREAD) || defined(HMONITOR_SANITIZED_ADDRESS)
inline constexpr bool kReduced = true;
#else
inline constexpr bool kReduced = false;
#endif

inline constexpr double kFieldAtFullScale = 100;

// A band with one station 300 kHz above the centre, 50 dB of carrier to noise.
inline BandPlan bandWith(const std::function<void(StationPlan&)>& shape, double rateHz = 1.2e6,
                         bool eightBit = false) {
    BandPlan band;
    band.rateHz = rateHz;
    band.eightBit = eightBit;
    band.carrierToNoiseDb = 50;
    StationPlan station;
    station.offsetHz = 300e3;
    shape(station);
    band.stations.push_back(station);
    return band;
}

// Runs the chain over `seconds` of the band, tuned to `offsetHz` from its centre. `each` sees the
// figures after every slot.
inline Figures measure(const BandPlan& band, double seconds, double offsetHz = 300e3,
                       const std::function<void(const Figures&)>& each = {}, double knownPpm = 0) {
    BandGenerator generator(band);
    ChainSettings settings;
    settings.rateHz = band.rateHz * (1 + knownPpm * 1e-6);
    settings.offsetHz = band.centreHz + offsetHz - band.centreHz * (1 + knownPpm * 1e-6);
    settings.dbuvAtFullScale = kFieldAtFullScale;
    TunedStation chain(settings);
    std::vector<Sample> samples(16384);
    auto left = static_cast<std::size_t>(seconds * band.rateHz);
    std::size_t slots = 0;
    while (left > 0) {
        const auto part = std::span(samples).first(std::min(left, samples.size()));
        generator.read(part);
        chain.push(part);
        left -= part.size();
        if (each && chain.slots() != slots) each(chain.figures());
        slots = chain.slots();
    }
    return chain.figures();
}

}  // namespace hm16::receiver
