// SPDX-License-Identifier: GPL-3.0-or-later
// A station with unsteady reception, and what a receiver measures slot by slot.
#pragma once

#include <cmath>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "tests/drivers/receiver/signals.h"

namespace hm16::receiver {

// Changes a sample on its way to the receiver; `seconds` is its time.
using Way = std::function<Sample(double seconds, Sample sample)>;

// Samples that a radio loses periodically.
struct LostSamples {
    double everySeconds = 1;
    double atSeconds = 0.43;  // in each period
    std::uint64_t count = 0;
    bool told = true;  // whether the radio reports how many are missing
};

struct Heard {
    std::vector<StationSlot> slots;
    Disturbances disturbances;

    const Figures& last() const { return slots.back().figures; }
};

// The samples of a band, with stations and noise generated apart. The last result is kept:
// generating takes far longer than measuring, and most cases of a suite share it.
class BandSamples {
 public:
    BandSamples(const BandPlan& band, double seconds)
        : clean_(stationsOf(band, countOf(band, seconds))), noise_(noiseOf(band, clean_->size())) {
        if (band.carrierToNoiseDb < 300) {
            noiseAmplitude_ = static_cast<float>(band.noiseReference *
                                                 std::pow(10.0, -band.carrierToNoiseDb / 20));
        }
    }

    std::size_t size() const { return clean_->size(); }
    Sample operator[](std::size_t n) const { return (*clean_)[n] + noiseAmplitude_ * (*noise_)[n]; }

 private:
    using Samples = std::shared_ptr<const std::vector<Sample>>;
    struct Made {
        BandPlan band;
        Samples samples;
    };
    static constexpr std::size_t kKept = 8;

    static std::size_t countOf(const BandPlan& band, double seconds) {
        return static_cast<std::size_t>(seconds * band.rateHz);
    }

    // Adds up the stations, each generated as the generator of the whole band does it.
    static Samples stationsOf(const BandPlan& band, std::size_t count) {
        if (band.stations.size() == 1) return made(band, count);
        auto sum = std::make_shared<std::vector<Sample>>(count);
        for (std::size_t n = 0; n < band.stations.size(); ++n) {
            BandPlan alone = band;
            alone.stations = {band.stations[n]};
            alone.seed = band.seed + n;
            const Samples one = made(alone, count);
            for (std::size_t at = 0; at < count; ++at) (*sum)[at] += (*one)[at];
        }
        return sum;
    }

    // Noise as strong as a carrier of amplitude 1.
    static Samples noiseOf(const BandPlan& band, std::size_t count) {
        BandPlan noise = band;
        noise.stations.clear();
        return made(noise, count);
    }

    static Samples made(BandPlan band, std::size_t count) {
        band.carrierToNoiseDb = band.stations.empty() ? 0 : 300;
        band.noiseReference = 1;
        static std::deque<Made> kept;
        for (const Made& one : kept)
            if (one.band == band && one.samples->size() >= count) {
                if (one.samples->size() == count) return one.samples;
                return std::make_shared<const std::vector<Sample>>(
                    one.samples->begin(),
                    one.samples->begin() + static_cast<std::ptrdiff_t>(count));
            }
        auto samples = std::make_shared<std::vector<Sample>>(count);
        BandGenerator(band).read(*samples);
        kept.push_front({band, samples});
        if (kept.size() > kKept) kept.pop_back();
        return samples;
    }

    Samples clean_;
    Samples noise_;
    float noiseAmplitude_ = 0;
};

inline Heard hear(const BandPlan& band, double seconds, const Way& way = {},
                  const std::optional<LostSamples>& lost = {}) {
    const auto all = static_cast<std::uint64_t>(seconds * band.rateHz);
    std::vector<Sample> samples(4096);
    std::uint64_t losses = 0;
    if (lost && seconds > lost->atSeconds)
        losses = 1 + static_cast<std::uint64_t>((seconds - lost->atSeconds) / lost->everySeconds);
    const double more = static_cast<double>(losses * (lost ? lost->count : 0) + samples.size());
    const BandSamples sent(band, seconds + more / band.rateHz);
    std::size_t next = 0;
    ChainSettings settings;
    settings.rateHz = band.rateHz;
    settings.offsetHz = 300e3;
    settings.dbuvAtFullScale = kFieldAtFullScale;
    TunedStation station(settings);
    Heard heard;
    station.chain().onSlot([&](const StationSlot& slot) { heard.slots.push_back(slot); });
    double nextLoss = lost ? lost->atSeconds : seconds;
    for (std::uint64_t at = 0; at < all; at += samples.size()) {
        if (static_cast<double>(at) / band.rateHz >= nextLoss) {
            next += static_cast<std::size_t>(lost->count);
            station.lose(lost->told ? lost->count : 0);
            nextLoss += lost->everySeconds;
        }
        for (Sample& sample : samples) sample = sent[next++];
        for (std::size_t n = 0; way && n < samples.size(); ++n)
            samples[n] = way(static_cast<double>(at + n) / band.rateHz, samples[n]);
        station.push(samples);
    }
    heard.disturbances = station.chain().disturbances();
    return heard;
}

// Changes the level over time, in dB.
inline Way levelMoves(const std::function<double(double seconds)>& db) {
    return [=](double seconds, Sample sample) {
        return sample * static_cast<float>(std::pow(10.0, db(seconds) / 20));
    };
}

// Once a second, at 0.43 s, replaces the signal for that long.
inline Way replaced(double lengthSeconds, const std::function<Sample()>& by) {
    return [=](double seconds, Sample sample) {
        const double in = seconds - std::floor(seconds) - 0.43;
        return in >= 0 && in < lengthSeconds ? by() : sample;
    };
}

}  // namespace hm16::receiver
