// SPDX-License-Identifier: GPL-3.0-or-later
// Limits of steady signals: tones near multiples of the slots' rate, subcarriers, overmodulation,
// sudden fades, second rays.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "drivers/receiver/chain/tuned_station.h"
#include "tests/drivers/receiver/air.h"

namespace hm16::receiver {
namespace {

TEST(EdgesAccuracy, TheCarrierDoesNotSwingWithAToneBesideAMultipleOf20Hz) {
    for (const double hz : {1259.0, 1259.5, 401.0}) {
        double lowest = 0;
        double highest = 0;
        int slots = 0;
        measure(bandWith([&](auto& s) {
                    s.direct = {{hz, 67.5e3}};
                }),
                2.6, 300e3, [&](const Figures& f) {
                    if (++slots < 22) return;
                    lowest = std::min(lowest, f.carrierHz);
                    highest = std::max(highest, f.carrierHz);
                });
        EXPECT_GT(lowest, -5) << hz;
        EXPECT_LT(highest, 5) << hz;
        RecordProperty("swing" + std::to_string(hz), std::to_string(highest - lowest));
    }
}

// The highest peak that a chain with this edge measures in 0.6 seconds of the band.
double peakBehind(const BandPlan& band, PeakEdge edge, std::vector<float>* wide = nullptr) {
    BandGenerator generator(band);
    ChainSettings settings;
    settings.rateHz = band.rateHz;
    settings.offsetHz = 300e3;
    settings.peakEdge = edge;
    TunedStation station(settings);
    if (wide != nullptr)
        station.chain().onWide([wide](std::span<const float> part) {
            wide->insert(wide->end(), part.begin(), part.end());
        });
    std::vector<Sample> samples(static_cast<std::size_t>(0.6 * band.rateHz));
    generator.read(samples);
    station.push(samples);
    return station.figures().peakHz;
}

TEST(EdgesAccuracy, PeaksOfSubcarriersUpTo100Kilohertz) {
    for (const double rate : {1.2e6, 2.4e6}) {
        for (const double hz : {57e3, 67e3, 76e3, 92e3, 99e3}) {
            const auto band = bandWith([&](auto& s) { s.direct = {{hz, 15e3}}; }, rate);
            EXPECT_NEAR(peakBehind(band, PeakEdge::At100), 15e3, 500) << hz << " at " << rate;
        }
    }
    const auto band = bandWith([](auto& s) { s.direct = {{92e3, 15e3}}; });
    EXPECT_LT(peakBehind(band, PeakEdge::At80), 2e3);
}

TEST(EdgesAccuracy, TheWideMultiplexIsFlatTo100Kilohertz) {
    constexpr double kWideHz = 300e3;
    for (const double hz : {1e3, 38e3, 67e3, 92e3, 99e3}) {
        const auto band = bandWith([&](auto& s) { s.direct = {{hz, 15e3}}; });
        std::vector<float> wide;
        peakBehind(band, PeakEdge::At80, &wide);
        ASSERT_GT(wide.size(), 120000U);
        std::complex<double> line = 0;
        for (std::size_t n = 30000; n < 120000; ++n)
            line += std::polar(static_cast<double>(wide[n]),
                               2 * std::numbers::pi * hz * static_cast<double>(n) / kWideHz);
        EXPECT_NEAR(2 * std::abs(line) / 90000, 15e3, 75) << hz;
    }
}

TEST(EdgesAccuracy, ToneOf149KilohertzIsACarrier) {
    for (const double hz : {400.0, 1000.0, 5000.0}) {
        const Figures figures = measure(bandWith(
                                            [&](auto& s) {
                                                s.direct = {{hz, 149e3}};
                                            },
                                            2.4e6),
                                        1.2);
        EXPECT_TRUE(figures.carrier) << hz;
        EXPECT_FALSE(figures.narrow) << hz;
        EXPECT_NEAR(figures.peakHz, 149e3, 2000) << hz;
        EXPECT_NEAR(figures.carrierHz, 0, 20) << hz;
    }
}

TEST(EdgesAccuracy, TheFieldFollowsAFadeWithin300Milliseconds) {
    constexpr double kFadeSeconds = 1.013;
    const auto band = bandWith([](auto& s) { s.direct = {{1000, 40e3}}; });
    BandGenerator generator(band);
    ChainSettings settings;
    settings.rateHz = band.rateHz;
    settings.offsetHz = 300e3;
    settings.dbuvAtFullScale = kFieldAtFullScale;
    TunedStation station(settings);
    std::vector<Sample> samples(static_cast<std::size_t>(kFadeSeconds * band.rateHz));
    generator.read(samples);
    station.push(samples);
    const double before = station.figures().fieldDb;
    samples.resize(static_cast<std::size_t>(0.3 * band.rateHz));
    generator.read(samples);
    for (Sample& sample : samples) sample *= 0.1F;
    station.push(samples);
    EXPECT_NEAR(before - station.figures().fieldDb, 20, 0.2);
    RecordProperty("fade", std::to_string(before - station.figures().fieldDb));
}

StationPlan programmeStation() {
    StationPlan station;
    station.offsetHz = 300e3;
    station.pilotDeviationHz = 6750;
    station.rds.deviationHz = 2000;
    station.programme = {.level = 0.8, .width = 0.4};
    return station;
}

struct LateRay {
    std::size_t samples;  // of delay
    Sample gain;
};

Way withRay(const LateRay& ray) {
    return [gain = ray.gain, past = std::vector<Sample>(ray.samples), at = std::size_t{0}](
               double, Sample sample) mutable {
        const Sample late = std::exchange(past[at], sample);
        at = (at + 1) % past.size();
        return sample + gain * late;
    };
}

// The variation of the envelope that the rays alone cause, in percent rms over the last half
// second.
double trueVariation(const BandSamples& sent, const LateRay& ray, std::size_t end) {
    double sum = 0;
    double squares = 0;
    const std::size_t from = end - 600000;
    for (std::size_t n = from; n < end; ++n) {
        const Sample sample = sent[n] + ray.gain * sent[n - ray.samples];
        sum += std::abs(sample);
        squares += std::norm(sample);
    }
    const auto count = static_cast<double>(end - from);
    const double mean = sum / count;
    return 100 * std::sqrt(squares / count - mean * mean) / mean;
}

TEST(EdgesAccuracy, MultipathOnProgramme) {
    constexpr double kSeconds = 2.1;
    constexpr double kRateHz = 1.2e6;
    BandPlan band = bandWith([](auto& s) { s = programmeStation(); }, kRateHz);
    BandPlan silent = band;
    silent.carrierToNoiseDb = 300;
    const BandSamples sent(silent, kSeconds);
    for (const double delay : {5e-6, 12e-6, 20e-6, 33e-6, 50e-6}) {
        for (const double amplitude : {0.05, 0.2, 0.4}) {
            const LateRay ray{static_cast<std::size_t>(std::lround(delay * kRateHz)),
                              std::polar(static_cast<float>(amplitude),
                                         static_cast<float>(std::numbers::pi / 3))};
            const double truth = trueVariation(sent, ray, sent.size());
            const Heard heard = hear(band, kSeconds, withRay(ray));
            const double read = heard.last().multipathPercent;
            // The nulls of strong echoes must not count as bursts.
            EXPECT_LT(heard.disturbances.bursts, 20U) << delay << " " << amplitude;
            EXPECT_NEAR(read, truth, std::max(1.0, 0.2 * truth)) << delay << " " << amplitude;
            RecordProperty(std::to_string(delay * 1e6) + "us" + std::to_string(amplitude),
                           std::to_string(read) + " of " + std::to_string(truth));
        }
    }
}

// Figures that echoes hide are marked; those that they do not affect stay: levels to 0.2 dB, the
// pilot, the field.
TEST(EdgesAccuracy, EchoesFrom6PercentOnHidePeakSeparationNoiseAndDistortion) {
    BandPlan band = bandWith([](auto& s) {
        s.pilotDeviationHz = 6750;
        s.tones = {{1000, 0.6, 0}};
    });
    const Heard plain = hear(band, 1.6);
    for (const float amplitude : {0.05F, 0.2F}) {
        const Heard heard = hear(band, 1.6, withRay({24, std::polar(amplitude, 1.0F)}));
        const Figures& figures = heard.last();
        const FigureStates& states = heard.slots.back().states;
        const bool strong = amplitude > 0.1F;
        EXPECT_EQ(figures.multipathPercent > 6, strong);
        EXPECT_EQ(std::fabs(figures.peakHz - plain.last().peakHz) > 3000, strong);
        EXPECT_EQ(figures.distortionPercent > 1, strong);
        const FigureState hidden = strong ? FigureState::Multipath : FigureState::Known;
        EXPECT_EQ(states.peak, hidden);
        EXPECT_EQ(states.noise, hidden);
        EXPECT_EQ(states.separationLeft, hidden);
        EXPECT_EQ(states.distortion, hidden);
        EXPECT_EQ(states.levels, FigureState::Known);
        EXPECT_EQ(states.multipath, FigureState::Known);
        EXPECT_EQ(states.field, FigureState::Known);
        EXPECT_NEAR(figures.levelLeftDb, plain.last().levelLeftDb, 0.3);
    }
}

TEST(EdgesAccuracy, NeitherANeighbourNorAStickIsMultipath) {
    const auto multipath = [](const BandPlan& band, double offset) {
        const double percent = measure(band, 1.6, offset).multipathPercent;
        EXPECT_LE(percent, 1) << offset;
    };
    BandPlan band = bandWith([](auto& s) { s = programmeStation(); });
    multipath(band, 300e3);
    StationPlan neighbour = programmeStation();
    neighbour.offsetHz = 500e3;
    neighbour.amplitude = 0.07;
    band.stations.push_back(neighbour);
    multipath(band, 300e3);
    for (const double offset : {300e3, 0.0}) {
        BandPlan stick = bandWith([&](auto& s) {
            s = programmeStation();
            s.offsetHz = offset;
        });
        stick.gainError = 0.122;
        stick.phaseErrorDegrees = 3;
        stick.offsetI = 0.0221;
        multipath(stick, offset);
    }
}

}  // namespace
}  // namespace hm16::receiver
