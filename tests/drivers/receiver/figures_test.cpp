// SPDX-License-Identifier: GPL-3.0-or-later
// Each estimator on its own, numbers in and numbers out.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/kernels.h"
#include "drivers/receiver/figures/audio_power.h"
#include "drivers/receiver/figures/carrier_mean.h"
#include "drivers/receiver/figures/distortion.h"
#include "drivers/receiver/figures/noise_floor.h"
#include "drivers/receiver/figures/peaks_per_minute.h"
#include "drivers/receiver/figures/pilot_track.h"
#include "drivers/receiver/figures/programme_level.h"
#include "drivers/receiver/figures/response_tones.h"
#include "drivers/receiver/figures/slot_moments.h"
#include "drivers/receiver/figures/stereo_axis.h"
#include "drivers/receiver/synth/random.h"

namespace hm16::receiver {
namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

std::vector<float> sine(double hz, double amplitude, double rateHz, std::size_t count) {
    std::vector<float> out(count);
    for (std::size_t n = 0; n < count; ++n)
        out[n] =
            static_cast<float>(amplitude * std::sin(kTwoPi * hz / rateHz * static_cast<double>(n)));
    return out;
}

TEST(AngleSteps, AreExactToAMillionthOfARadianAllAround) {
    std::vector<float> iq;
    std::vector<double> angles;
    double angle = 0;
    for (int n = 0; n < 4000; ++n) {
        iq.push_back(static_cast<float>(std::cos(angle)));
        iq.push_back(static_cast<float>(std::sin(angle)));
        angles.push_back(-3.1 + 6.2 * n / 4000);
        angle += angles.back();
    }
    std::vector<float> steps(3999);
    angleSteps(iq.data(), steps.size(), steps.data());
    for (std::size_t n = 0; n < steps.size(); ++n) EXPECT_NEAR(steps[n], angles[n], 1e-6);
}

TEST(AngleSteps, OfSilenceAreZero) {
    const std::vector<float> iq(64, 0.0F);
    std::vector<float> steps(31, 9.0F);
    angleSteps(iq.data(), steps.size(), steps.data());
    for (const float step : steps) EXPECT_EQ(step, 0);
}

TEST(LowPass, IsFlatWhereItPassesAndEightyDecibelsDownWhereItStops) {
    const auto taps = designLowPass(2.4e6, 190e3, 290e3);
    for (double hz = 0; hz <= 190e3; hz += 5e3) EXPECT_NEAR(gainOf(taps, 2.4e6, hz), 1, 3e-4);
    for (double hz = 290e3; hz < 1.2e6; hz += 5e3)
        EXPECT_LT(std::fabs(gainOf(taps, 2.4e6, hz)), 1.3e-4);
}

TEST(SlotMoments, AreMeanAndMeanSquare) {
    const std::vector<float> values{0, 50, 20, -70, 10};
    EXPECT_NEAR(momentsOf(values).meanHz, 2, 1e-6);
    EXPECT_NEAR(momentsOf(values).meanSquare, (2500 + 400 + 4900 + 100) / 5.0, 1e-3);
    EXPECT_EQ(momentsOf({}).meanSquare, 0);
}

// A carrier 1 kHz off with a tone of 67.5 kHz on it.
CarrierMean carrierBesideTone(double hz, std::size_t slots) {
    constexpr std::size_t kLength = 12500;
    CarrierMean mean;
    std::vector<float> values(kLength);
    for (std::size_t slot = 0; slot < slots; ++slot) {
        for (std::size_t n = 0; n < kLength; ++n) {
            const double turns = hz * static_cast<double>(slot * kLength + n) / 250e3;
            values[n] = static_cast<float>(1000 + 67.5e3 * std::sin(kTwoPi * turns));
        }
        mean.add(values);
    }
    return mean;
}

TEST(CarrierMean, HoldsStillUnderAStrongLowTone) {
    EXPECT_NEAR(carrierBesideTone(30, 20).hz(), 1000, 1);
}

// With evenly weighted slots these tones would beat.
TEST(CarrierMean, HoldsStillUnderAToneBesideAMultipleOfTheSlotsRate) {
    for (const double hz : {1259.0, 1260.5, 61.0, 4001.0, 14999.0})
        for (std::size_t slots = 20; slots < 40; ++slots)
            EXPECT_NEAR(carrierBesideTone(hz, slots).hz(), 1000, 0.1) << hz;
}

TEST(CarrierMean, IsSoonNearAndFollows) {
    EXPECT_NEAR(carrierBesideTone(1000, 1).hz(), 1000, 150);
    EXPECT_NEAR(carrierBesideTone(1000, 4).hz(), 1000, 5);
    CarrierMean mean = carrierBesideTone(1000, 20);
    for (int slot = 0; slot < 20; ++slot) mean.add(std::vector<float>(12500, -3000.0F));
    EXPECT_NEAR(mean.hz(), -3000, 0.1);
}

TEST(CarrierMean, IsZeroBeforeAnythingCame) {
    EXPECT_EQ(CarrierMean().hz(), 0);
}

TEST(PeaksPerMinute, NeighbouringSlotsCountOnce) {
    PeaksPerMinute peaks;
    for (const double hz : {80e3, 90e3, 70e3, 75e3, 75.1e3}) peaks.add(hz);
    EXPECT_EQ(peaks.count(), 2);
}

TEST(PeaksPerMinute, ForgetsAfterSixtySeconds) {
    PeaksPerMinute peaks;
    peaks.add(80e3);
    for (int slot = 0; slot < 1199; ++slot) peaks.add(0);
    EXPECT_EQ(peaks.count(), 1);
    peaks.add(0);
    EXPECT_EQ(peaks.count(), 0);
}

TEST(ProgrammeLevel, RisesWithinThirtyMillisecondsAndFallsTwentyDecibelsIn1700) {
    ProgrammeLevel level;
    for (int step = 0; step < 30; ++step) level.add(100);
    EXPECT_NEAR(level.meanSquare(), 100, 1e-3);
    for (int step = 0; step < 1700; ++step) level.add(0);
    EXPECT_NEAR(10 * std::log10(level.meanSquare() / 100), -20, 0.5);
}

TEST(ProgrammeLevel, ReadsABurstOfTwentyMillisecondsNearlyWhole) {
    ProgrammeLevel level;
    for (int step = 0; step < 20; ++step) level.add(100);
    for (int step = 0; step < 10; ++step) level.add(0);
    EXPECT_NEAR(10 * std::log10(level.meanSquare() / 100), -0.2, 0.15);
}

// The mean square of a tone in steps beats at twice the tone's frequency.
TEST(ProgrammeLevel, StandsStillOnLowTones) {
    for (const double hz : {40.0, 47.0, 60.0, 75.0, 90.0, 190.0, 490.0, 990.0}) {
        ProgrammeLevel level;
        for (int step = 0; step < 2000; ++step) {
            const double beat = std::sin(kTwoPi * hz * ProgrammeLevel::kStepSeconds) /
                                (kTwoPi * hz * ProgrammeLevel::kStepSeconds);
            level.add(100 +
                      100 * beat * std::cos(2 * kTwoPi * hz * ProgrammeLevel::kStepSeconds * step));
        }
        EXPECT_NEAR(10 * std::log10(level.meanSquare() / 100), 0, 0.11) << hz;
    }
}

TEST(LevelDb, ZeroIsASineOf67500Hertz) {
    EXPECT_NEAR(levelDb(67.5e3 * 67.5e3 / 2), 0, 1e-9);
    EXPECT_NEAR(levelDb(67.5e2 * 67.5e2 / 2), -20, 1e-9);
    EXPECT_EQ(levelDb(0), kSilenceDb);
}

TEST(StereoAxis, PointsToRightMonoLeftAndOutOfPhase) {
    constexpr double kLoud = 1e9;
    const auto axis = [](const AudioPower& power) {
        StereoAxis result;
        result.add(power);
        return result.degrees();
    };
    EXPECT_NEAR(axis({0, kLoud, 0}), 0, 1e-9);
    EXPECT_NEAR(axis({kLoud, kLoud, kLoud}), 45, 1e-9);
    EXPECT_NEAR(axis({kLoud, 0, 0}), 90, 1e-9);
    EXPECT_NEAR(axis({kLoud, kLoud, -kLoud}), 135, 1e-9);
}

TEST(StereoAxis, KeepsTheLastDirectionBelowMinusFiftyDecibels) {
    StereoAxis axis;
    axis.add({1e9, 0, 0});
    axis.add({0, 67.5e3 * 67.5e3 / 2 * 1.9e-5, 0});
    EXPECT_NEAR(axis.degrees(), 90, 1e-9);
    axis.add({0, 67.5e3 * 67.5e3 / 2 * 2.1e-5, 0});
    EXPECT_NEAR(axis.degrees(), 0, 1e-9);
}

TEST(NoiseFloor, IsTheFloorOfTheGapsAndUnknownInTheFirstSecond) {
    NoiseFloor floor;
    const double quiet = 67.5e3 * 67.5e3 / 2 * 1e-6;  // -60 dB
    for (int block = 0; block < 19; ++block) floor.add(quiet);
    EXPECT_EQ(floor.db(), 0);
    floor.add(quiet);
    for (int block = 0; block < 300; ++block) floor.add(1e9);
    EXPECT_NEAR(floor.db(), -60, 1e-6);
    for (int block = 0; block < 380; ++block) floor.add(1e9);
    EXPECT_GT(floor.db(), -10);
}

TEST(PilotTrack, FitsTheFrequencyOfNoisyPoints) {
    PilotTrack track;
    Random random(4);
    for (int n = 0; n < 100; ++n) {
        const double t = n * 0.002;
        const auto clean = std::polar(3375.0, kTwoPi * 1.7 * t + 0.4);
        track.add(t, std::complex<float>(clean) + 30.0F * random.noise());
    }
    const PilotLine line = track.fit(0, 0.2);
    EXPECT_TRUE(line.steady());
    EXPECT_NEAR(line.errorHz(), 1.7, 0.01);
    EXPECT_NEAR(2 * line.amplitude, 6750, 20);
}

TEST(PilotTrack, TakesNoiseForNoPilot) {
    PilotTrack track;
    Random random(5);
    for (int n = 0; n < 100; ++n) track.add(n * 0.002, 1000.0F * random.noise());
    EXPECT_FALSE(track.fit(0, 0.2).steady());
    EXPECT_FALSE(PilotTrack().fit(0, 1).steady());
}

TEST(ToneWatch, MeasuresNoDistortionOnTwoTones) {
    ToneWatch watch(50e3);
    auto both = sine(1000, 30e3, 50e3, 50000);
    const auto second = sine(1630, 20e3, 50e3, 50000);
    for (std::size_t n = 0; n < both.size(); ++n) both[n] += second[n];
    watch.add(both, both);
    EXPECT_EQ(watch.distortionPercent(), 0);
}

TEST(ToneWatch, MeasuresTheHarmonicsOfOneTone) {
    ToneWatch watch(50e3);
    auto tone = sine(1000, 30e3, 50e3, 50000);
    const auto second = sine(2000, 300, 50e3, 50000);
    const auto third = sine(3000, 400, 50e3, 50000);
    for (std::size_t n = 0; n < tone.size(); ++n) tone[n] += second[n] + third[n];
    EXPECT_TRUE(watch.add(tone, tone));
    EXPECT_NEAR(watch.distortionPercent(), 100 * 500 / 30e3, 0.005);
    EXPECT_NEAR(watch.tone().hz, 1000, 0.2);
}

SteadyTone testTone(double hz, double db) {
    SteadyTone tone;
    tone.hz = hz;
    tone.meanSquare = 67.5e3 * 67.5e3 / 2 * std::pow(10, db / 10);
    tone.rest = tone.meanSquare * 1e-5;
    return tone;
}

TEST(ResponseTones, FindsTheEightTonesAgainstTheOneOfOneKilohertz) {
    ResponseTones tones;
    double db = -10;
    for (const int hz : ResponseTones::kTones) {
        EXPECT_FALSE(tones.ended());
        for (int look = 0; look < 4; ++look) tones.look(testTone(hz * 1.01, db));
        db += 1;
    }
    EXPECT_FALSE(tones.ended());  // the last one may not have filled a look yet
    tones.look({});
    EXPECT_TRUE(tones.ended());
    const auto results = tones.results();
    EXPECT_EQ(results[0].hz, 30);
    EXPECT_EQ(results[0].tenthsOfDb, -30);
    EXPECT_EQ(results[3].hz, 1000);
    EXPECT_EQ(results[3].tenthsOfDb, 0);
    EXPECT_EQ(results[7].hz, 15000);
    EXPECT_EQ(results[7].tenthsOfDb, 40);
}

TEST(ResponseTones, EndsASecondIntoALastToneThatGoesOn) {
    ResponseTones tones;
    for (const int hz : ResponseTones::kTones) tones.look(testTone(hz, -10));
    for (int look = 0; look < 3; ++look) tones.look(testTone(15000, -8));
    EXPECT_FALSE(tones.ended());
    tones.look(testTone(15000, -8));
    EXPECT_TRUE(tones.ended());
    EXPECT_EQ(tones.results()[7].tenthsOfDb, 20);
}

TEST(ResponseTones, WaitsForTheFirstToneAndEndsThreeSecondsAfterTheLast) {
    ResponseTones tones;
    for (int look = 0; look < 100; ++look) tones.look({});
    EXPECT_FALSE(tones.ended());
    tones.look(testTone(400, -9));
    for (int look = 0; look < 11; ++look) tones.look(testTone(523, -9));
    EXPECT_FALSE(tones.ended());
    tones.look({});
    EXPECT_TRUE(tones.ended());
    EXPECT_EQ(tones.results()[0].hz, 400);
    EXPECT_EQ(tones.results()[1].hz, 0);
}

}  // namespace
}  // namespace hm16::receiver
