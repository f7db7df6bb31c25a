// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <string>

#include "drivers/simulated/station.h"

namespace hm16::simulated {
namespace {

constexpr std::uint64_t kSeed = 16;

const Station& named(std::string_view name) {
    for (const Station& station : stations()) {
        if (station.name == name) return station;
    }
    throw std::out_of_range(std::string(name));
}

Tuning tunedTo(double frequency) {
    Tuning tuning;
    tuning.frequency = frequency;
    return tuning;
}

struct Span {
    double low = 1e9;
    double high = -1e9;
    double sum = 0;
    int count = 0;
    double mean() const { return sum / count; }
};

// The range of a figure over two minutes, read every 30 ms.
Span over(const Tuning& tuning, const std::function<double(const Readings&)>& figure) {
    Span span;
    for (int i = 0; i < 4000; ++i) {
        const double value = figure(figuresAt(kSeed, tuning, i * 0.03, 1));
        span.low = std::min(span.low, value);
        span.high = std::max(span.high, value);
        span.sum += value;
        ++span.count;
    }
    return span;
}

TEST(StationTable, HasTheKindsOfStationThatAPanelMustShow) {
    int half = 0, mono = 0, withRds = 0, withoutRds = 0, over100 = 0, heavy = 0, off = 0;
    int weak = 0, strong = 0;
    for (const Station& s : stations()) {
        half += s.frequency != std::floor(s.frequency) ? 1 : 0;
        mono += s.isStereo() ? 0 : 1;
        (s.hasRds() ? withRds : withoutRds) += 1;
        over100 += s.modulation > 120 ? 1 : 0;
        heavy += s.multipath >= 28 ? 1 : 0;
        off += std::abs(s.carrierError) > 10000 ? 1 : 0;
        weak += s.field < 45 ? 1 : 0;
        strong += s.field > 80 ? 1 : 0;
    }
    EXPECT_EQ(stations().size(), 25u);
    EXPECT_EQ(half, 2);
    EXPECT_GE(mono, 2);
    EXPECT_GE(withRds, 15);
    EXPECT_GE(withoutRds, 4);
    EXPECT_EQ(over100, 1);
    EXPECT_EQ(heavy, 1);
    EXPECT_EQ(off, 1);
    EXPECT_GE(weak, 2);
    EXPECT_GE(strong, 4);
}

TEST(StationTable, IsInOrderWithinTheBandAndEachNameFitsAMemory) {
    std::set<std::string_view> names;
    double last = 0;
    for (const Station& station : stations()) {
        EXPECT_GE(station.frequency, 875);
        EXPECT_LE(station.frequency, 1080);
        EXPECT_GE(station.frequency, last + 4) << "two stations share a channel";
        last = station.frequency;
        EXPECT_LE(station.name.size(), 9u);
        EXPECT_TRUE(names.insert(station.name).second);
        EXPECT_EQ(station.isStereo(), station.separation > 0);
    }
}

TEST(StationAt, LocksWithinSeventyFiveKilohertz) {
    EXPECT_EQ(stationAt(985), &named("FAROFM"));
    EXPECT_EQ(stationAt(985.5), &named("FAROFM"));
    EXPECT_EQ(stationAt(984.25), &named("FAROFM"));
    EXPECT_EQ(stationAt(986), nullptr);
    EXPECT_EQ(stationAt(1025.5), &named("CUARTO"));
    EXPECT_EQ(stationAt(1025), &named("CUARTO"));
    EXPECT_EQ(stationAt(1024), nullptr);
}

TEST(Figures, RepeatWithTheSameSeedAndTime) {
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(figuresAt(kSeed, tunedTo(985), i * 0.7, 1),
                  figuresAt(kSeed, tunedTo(985), i * 0.7, 1));
    }
    EXPECT_NE(figuresAt(kSeed, tunedTo(985), 5, 1), figuresAt(kSeed + 1, tunedTo(985), 5, 1));
}

TEST(Figures, MoveBetweenTwoLooksOfThePanel) {
    for (const double frequency : {985.0, 913.0, 907.0, 990.0}) {
        int still = 0;
        for (int i = 0; i < 1000; ++i) {
            const Readings a = figuresAt(kSeed, tunedTo(frequency), i * 0.03, 1);
            const Readings b = figuresAt(kSeed, tunedTo(frequency), (i + 1) * 0.03, 1);
            still += a.levelFirst == b.levelFirst || a.peakModulation == b.peakModulation ? 1 : 0;
        }
        // A level may stay at the top of its scale for a moment.
        EXPECT_LT(still, 100) << frequency;
    }
}

TEST(Figures, OfAGoodStationStayWhereSuchStationsAre) {
    const Tuning tuning = tunedTo(985);
    const Span modulation = over(tuning, [](auto& r) { return r.peakModulation; });
    EXPECT_GE(modulation.low, 40);
    EXPECT_LE(modulation.high, 110);
    EXPECT_GT(modulation.high, 95);
    const Span level = over(tuning, [](auto& r) { return r.levelFirst; });
    EXPECT_GE(level.low, -25);
    EXPECT_LE(level.high, 3);
    EXPECT_GT(level.high - level.low, 8);
    const Span phase = over(tuning, [](auto& r) { return r.stereoPhase; });
    EXPECT_NEAR(phase.mean(), 45, 3);
    EXPECT_GE(phase.low, 0);
    EXPECT_LE(phase.high, 90);
    EXPECT_GT(phase.high - phase.low, 20);
    const Span power = over(tuning, [](auto& r) { return r.relativePower * 10; });
    EXPECT_GT(power.low, 20);
    EXPECT_LT(power.high, 60);
    EXPECT_NEAR(over(tuning, [](auto& r) { return r.pilotLevel; }).mean(), 9, 0.2);
    EXPECT_NEAR(over(tuning, [](auto& r) { return r.noiseLeft; }).mean(), -70.5, 0.5);
    EXPECT_NEAR(over(tuning, [](auto& r) { return r.separationLeft; }).mean(), 52, 1);
    EXPECT_NEAR(over(tuning, [](auto& r) { return r.distortion; }).mean(), 0.16, 0.02);
    EXPECT_NEAR(over(tuning, [](auto& r) { return r.field; }).mean(), 88, 0.3);
    EXPECT_LT(over(tuning, [](auto& r) { return r.multipath; }).high, 6);
    EXPECT_NEAR(over(tuning, [](auto& r) { return r.rdsLevel; }).mean(), 3.2, 0.2);
}

TEST(Figures, AllStationsStayWithinWhatThePanelsAreBuiltFor) {
    for (const Station& station : stations()) {
        const Tuning tuning = tunedTo(station.frequency);
        for (int i = 0; i < 2000; ++i) {
            const Readings r = figuresAt(kSeed, tuning, i * 0.05, 1);
            ASSERT_GE(r.peakModulation, 0) << station.name;
            ASSERT_LE(r.peakModulation, 160) << station.name;
            ASSERT_LE(r.levelFirst, 3) << station.name;
            ASSERT_GE(r.levelFirst, -64) << station.name;
            ASSERT_LE(std::abs(r.pilotError), 2.5) << station.name;
            ASSERT_LE(r.pilotLevel, 10.2) << station.name;
            ASSERT_LE(std::abs(r.carrierDeviation), 100) << station.name;
            ASSERT_EQ(r.field, std::round(r.field)) << station.name;
            ASSERT_GE(r.field, 27) << station.name;
            ASSERT_LE(r.field, 95) << station.name;
            ASSERT_GE(r.multipath, 0) << station.name;
        }
    }
}

TEST(Figures, AMonoStationHasNoPilotAndBothChannelsAlike) {
    const Tuning tuning = tunedTo(named("VALLE").frequency);
    for (int i = 0; i < 500; ++i) {
        const Readings r = figuresAt(kSeed, tuning, i * 0.1, 1);
        EXPECT_EQ(r.pilotLevel, 0);
        EXPECT_EQ(r.separationLeft, 0);
        EXPECT_EQ(r.rdsLevel, 0);
        EXPECT_EQ(r.levelFirst, r.levelSecond);
        EXPECT_NEAR(r.stereoPhase, 45, 1e-3);
    }
}

TEST(Figures, AStationWithoutRdsHasNoRdsLevel) {
    EXPECT_EQ(figuresAt(kSeed, tunedTo(named("PARQUE").frequency), 3, 1).rdsLevel, 0);
    EXPECT_GT(figuresAt(kSeed, tunedTo(named("SIERRA").frequency), 3, 1).rdsLevel, 2);
}

TEST(Figures, TheOverModulatedStationPassesAHundredPercentOftenAndIsCountedSo) {
    const Tuning tuning = tunedTo(named("FUERZA").frequency);
    EXPECT_GT(over(tuning, [](auto& r) { return r.peakModulation > 100 ? 1.0 : 0.0; }).mean(), 0.3);
    EXPECT_GT(over(tuning, [](auto& r) { return r.peaksPerMinute; }).low, 100);
    const Tuning good = tunedTo(named("LIRICA").frequency);
    EXPECT_LT(over(good, [](auto& r) { return r.peaksPerMinute; }).high, 4);
}

TEST(Figures, TheStationOffItsCarrierHoldsTheEndOfTheScale) {
    const Tuning tuning = tunedTo(named("DERIVA").frequency);
    const Span carrier = over(tuning, [](auto& r) { return r.carrierDeviation; });
    EXPECT_EQ(carrier.low, 100);
    EXPECT_EQ(carrier.high, 100);
    const Tuning good = tunedTo(985);
    EXPECT_LT(std::abs(over(good, [](auto& r) { return r.carrierDeviation; }).mean()), 3);
}

TEST(Figures, HeavyMultipathIsBadMostOfTheTime) {
    const Tuning tuning = tunedTo(named("MURALLA").frequency);
    EXPECT_GT(over(tuning, [](auto& r) { return r.multipath >= 28 ? 1.0 : 0.0; }).mean(), 0.7);
}

TEST(Figures, BetweenStationsThereIsNoiseAndNoPilot) {
    for (const double frequency : {875.0, 880.5, 990.0, 1050.0, 1080.0}) {
        ASSERT_EQ(stationAt(frequency), nullptr);
        const Tuning tuning = tunedTo(frequency);
        EXPECT_LE(over(tuning, [](auto& r) { return r.pilotLevel; }).high, 0.3) << frequency;
        // Far from the mark that ends a response run.
        EXPECT_LE(over(tuning, [](auto& r) { return std::abs(r.pilotError); }).high, 20);
        EXPECT_GT(over(tuning, [](auto& r) { return r.noiseLeft; }).low, -20) << frequency;
        EXPECT_LT(over(tuning, [](auto& r) { return r.field; }).high, 45) << frequency;
        EXPECT_EQ(over(tuning, [](auto& r) { return r.separationLeft; }).high, 0) << frequency;
        EXPECT_EQ(over(tuning, [](auto& r) { return r.rdsLevel; }).high, 0) << frequency;
        EXPECT_GE(over(tuning, [](auto& r) { return r.multipath; }).low, 28) << frequency;
    }
}

TEST(Figures, InTheSumModeTheSecondChannelIsTheDifference) {
    Tuning tuning = tunedTo(985);
    tuning.audioMode = AudioMode::SumDifference;
    for (int i = 0; i < 500; ++i) {
        const Readings r = figuresAt(kSeed, tuning, i * 0.1, 1);
        EXPECT_LT(r.levelSecond, r.levelFirst - 5);
    }
    Tuning mono = tunedTo(named("VALLE").frequency);
    mono.audioMode = AudioMode::SumDifference;
    EXPECT_LT(over(mono, [](auto& r) { return r.levelSecond; }).high, -50);
}

TEST(Figures, TheAverageDetectorReadsLowerThanThePeakDetector) {
    Tuning average = tunedTo(985);
    average.detector = Detector::Average;
    for (int i = 0; i < 500; ++i) {
        EXPECT_LT(figuresAt(kSeed, average, i * 0.1, 1).peakModulation,
                  figuresAt(kSeed, tunedTo(985), i * 0.1, 1).peakModulation);
    }
}

TEST(Figures, TunedAsideTheCarrierIsAtTheEndOfTheScaleOnTheRightSide) {
    EXPECT_EQ(figuresAt(kSeed, tunedTo(984.5), 3, 1).carrierDeviation, 100);
    EXPECT_EQ(figuresAt(kSeed, tunedTo(985.5), 3, 1).carrierDeviation, -100);
}

TEST(Figures, FineLevelStepsAreKeptWhenAskedFor) {
    bool fine = false;
    for (int i = 0; i < 100; ++i) {
        const float field = figuresAt(kSeed, tunedTo(985), i * 0.1, 0).field;
        fine = fine || field != std::round(field);
    }
    EXPECT_TRUE(fine);
    EXPECT_EQ(stepped(67.26, 0.5), 67.5);
    EXPECT_EQ(stepped(67.26, 0), 67.26);
}

}  // namespace
}  // namespace hm16::simulated
