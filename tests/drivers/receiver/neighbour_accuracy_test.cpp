// SPDX-License-Identifier: GPL-3.0-or-later
// The accuracy that is left beside another station.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "drivers/receiver/synth/composite_generator.h"
#include "tests/drivers/receiver/accuracy.h"

namespace hm16::receiver {
namespace {

class NeighbourAccuracy : public Accuracy {};

INSTANTIATE_TEST_SUITE_P(Samples, NeighbourAccuracy, testing::ValuesIn(kKinds), nameOf);

// A station and one beside it.
BandPlan withNeighbour(BandPlan plan, double offsetHz, double strongerDb) {
    StationPlan& station = plan.stations.front();
    station.amplitude = strongerDb > 10 ? 0.08 : 0.4;
    plan.noiseReference = station.amplitude;
    StationPlan other;
    other.offsetHz = station.offsetHz + offsetHz;
    other.amplitude = station.amplitude * std::pow(10, strongerDb / 20);
    other.pilotDeviationHz = 6750;
    other.tones = {{700, 0.5, 0.1}, {3100, 0.1, 0.3}};
    plan.stations.push_back(other);
    return plan;
}

// The highest deviation that the station sends in the last slot of 1.2 seconds. The filters delay
// it by less than the time that is added.
double truePeakHz(const StationPlan& station) {
    constexpr double kFineHz = 2.4e6;
    CompositeGenerator generator(station, kFineHz, 2);
    std::vector<double> deviation;
    generator.generate(static_cast<std::size_t>(1.15 * kFineHz), deviation);
    double peak = 0;
    const auto from = static_cast<std::ptrdiff_t>(1.1 * kFineHz);
    for (auto hz = deviation.begin() + from; hz != deviation.end(); ++hz)
        peak = std::max(peak, std::fabs(*hz));
    return peak;
}

TEST_P(NeighbourAccuracy, StrongNeighbourAt400KilohertzDoublesTheBarsAtMost) {
    for (const double side : {-400e3, 400e3}) {
        const auto plan = withNeighbour(band([](auto& s) {
                                            stereo(s, 0.7, 0);
                                            s.carrierErrorHz = 400;
                                            s.pilotErrorHz = 1;
                                        }),
                                        side, 20);
        const Figures f = measure(plan, 1.2);
        EXPECT_NEAR(f.peakHz, truePeakHz(plan.stations.front()), 1000);
        EXPECT_NEAR(f.carrierHz, 400, 10);
        EXPECT_NEAR(f.pilotHz, 6750, 0.01 * 6750);
        EXPECT_NEAR(f.pilotErrorHz, 1, 0.02);
        EXPECT_NEAR(f.rdsHz, 2000, 0.1 * 2000);
        EXPECT_NEAR(f.rdsErrorHz, 3, 0.2);
        EXPECT_NEAR(f.levelLeftDb, 20 * std::log10(0.7), 0.2);
        EXPECT_GE(f.separationLeftDb, 54);
        EXPECT_LE(f.distortionPercent, 0.04);
        EXPECT_NEAR(f.stereoPhaseDegrees, 90, 1);
        EXPECT_LE(f.multipathPercent, 2);
        EXPECT_NEAR(f.fieldDb, kFieldAtFullScale + 20 * std::log10(0.08), 0.4);
        miss(f.peakHz - truePeakHz(plan.stations.front()));
    }
}

TEST_P(NeighbourAccuracy, PeaksFrom30To120PercentBesideAStrongNeighbourAt400Kilohertz) {
    std::uint64_t seed = 20;
    for (const double percent : {30.0, 60.0, 90.0, 120.0}) {
        const double hz = seed % 2 == 0 ? 1000 : 15000;
        auto plan = withNeighbour(band([&](auto& s) {
                                      s.direct = {{hz, percent * 750}};
                                  }),
                                  seed % 4 < 2 ? 400e3 : -400e3, 20);
        plan.stations.back().programme.level = percent / 100;
        plan.seed = ++seed;
        int slots = 0;
        measure(plan, 0.6, 300e3, [&](const Figures& f) {
            if (++slots < 3) return;
            EXPECT_NEAR(f.peakHz, percent * 750, 1000) << percent << " % at " << hz << " Hz";
            miss(f.peakHz - percent * 750);
        });
        EXPECT_GE(slots, 11);
    }
}

// With eight bits, which must hold the neighbour too, the station has 36 dB of carrier to noise.
// The highest crest of a programme's slot comes only once, so the noise on it cannot be averaged.
TEST_P(NeighbourAccuracy, AProgrammesPeaksBesideAStrongNeighbourAt400Kilohertz) {
    double squares = 0;
    int slots = 0;
    for (const double level : {0.3, 0.9}) {
        const auto alone = band([&](auto& s) {
            s.pilotDeviationHz = 6750;
            s.rds.deviationHz = 2000;
            s.programme = {.level = level, .width = 0.9};
        });
        auto pure = alone;
        pure.eightBit = false;
        pure.carrierToNoiseDb = 300;
        std::vector<double> truth;
        measure(pure, 1.2, 300e3, [&](const Figures& f) { truth.push_back(f.peakHz); });
        std::size_t slot = 0;
        measure(withNeighbour(alone, -400e3, 20), 1.2, 300e3, [&](const Figures& f) {
            const std::size_t now = slot++;
            if (now < 3) return;
            const double wrong = f.peakHz - truth.at(now);
            EXPECT_NEAR(wrong, 0, 1500);
            squares += wrong * wrong;
            ++slots;
            miss(wrong);
        });
    }
    ASSERT_GE(slots, 38);
    EXPECT_LT(std::sqrt(squares / slots), 600);
    RecordProperty("rms", std::to_string(std::sqrt(squares / slots)));
}

TEST_P(NeighbourAccuracy, PeaksPerMinuteAreExactBesideAStrongNeighbourAt400Kilohertz) {
    const auto plan = withNeighbour(band(placeBursts), 400e3, 20);
    EXPECT_EQ(measure(plan, 2.6).peaksPerMinute, 5);
}

TEST_P(NeighbourAccuracy, EquallyStrongNeighbourAt200Kilohertz) {
    for (const double side : {-200e3, 200e3}) {
        const auto plan = withNeighbour(band([](auto& s) {
                                            stereo(s, 0.7, 0);
                                            s.carrierErrorHz = 400;
                                        }),
                                        side, 0);
        const Figures f = measure(plan, 1.2);
        EXPECT_TRUE(f.narrow);
        EXPECT_NEAR(f.carrierHz, 400, 100);
        EXPECT_NEAR(f.pilotHz, 6750, 0.05 * 6750);
        EXPECT_NEAR(f.peakHz, truePeakHz(plan.stations.front()), 3000);
        miss(f.peakHz - truePeakHz(plan.stations.front()));
    }
}

}  // namespace
}  // namespace hm16::receiver
