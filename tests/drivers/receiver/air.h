// SPDX-License-Identifier: GPL-3.0-or-later
// A station with unsteady reception, and what a receiver measures slot by slot.
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {

// Changes a sample on its way; `seconds` is its time.
using Way = std::function<Sample(double seconds, Sample sample)>;

// Samples that a radio loses.
struct LostSamples {
    double everySeconds = 1;
    double atSeconds = 0.43;  // in each of them
    std::uint64_t count = 0;
    bool told = true;  // that so many are missing
};

struct Heard {
    std::vector<StationSlot> slots;
    Disturbances disturbances;

    const Figures& last() const { return slots.back().figures; }
};

inline Heard hear(const BandPlan& band, double seconds, const Way& way = {},
                  const std::optional<LostSamples>& lost = {}) {
    BandGenerator generator(band);
    ChainSettings settings;
    settings.rateHz = band.rateHz;
    settings.offsetHz = 300e3;
    settings.dbuvAtFullScale = kFieldAtFullScale;
    TunedStation station(settings);
    Heard heard;
    station.chain().onSlot([&](const StationSlot& slot) { heard.slots.push_back(slot); });
    std::vector<Sample> samples(4096);
    const auto all = static_cast<std::uint64_t>(seconds * band.rateHz);
    double nextLoss = lost ? lost->atSeconds : seconds;
    for (std::uint64_t at = 0; at < all; at += samples.size()) {
        if (static_cast<double>(at) / band.rateHz >= nextLoss) {
            std::vector<Sample> gone(static_cast<std::size_t>(lost->count));
            generator.read(gone);
            station.lose(lost->told ? lost->count : 0);
            nextLoss += lost->everySeconds;
        }
        generator.read(samples);
        for (std::size_t n = 0; way && n < samples.size(); ++n)
            samples[n] = way(static_cast<double>(at + n) / band.rateHz, samples[n]);
        station.push(samples);
    }
    heard.disturbances = station.chain().disturbances();
    return heard;
}

// A way that applies a level in dB over time.
inline Way levelMoves(const std::function<double(double seconds)>& db) {
    return [=](double seconds, Sample sample) {
        return sample * static_cast<float>(std::pow(10.0, db(seconds) / 20));
    };
}

// Once a second, at 0.43 s, something else replaces the signal for that long.
inline Way replaced(double lengthSeconds, const std::function<Sample()>& by) {
    return [=](double seconds, Sample sample) {
        const double in = seconds - std::floor(seconds) - 0.43;
        return in >= 0 && in < lengthSeconds ? by() : sample;
    };
}

}  // namespace hm16::receiver
