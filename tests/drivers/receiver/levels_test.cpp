// SPDX-License-Identifier: GPL-3.0-or-later
// Single levels and frames of carriers whose strength is known.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "drivers/receiver/library/receiver_unit.h"
#include "drivers/receiver/synth/band_generator.h"
#include "tests/drivers/receiver/accuracy.h"
#include "tests/support/temp_folder.h"

namespace hm16::receiver {
namespace {

class Levels : public testing::TestWithParam<Kind> {
 protected:
    Levels() {
        options_.pace = Pace::Fast;
        options_.levelStepDb = 0.1;
        options_.dbuvAtFullScale = 87.3;
        band_.rateHz = GetParam().rateHz;
        band_.centreHz = kCentreHz;
        band_.eightBit = GetParam().eightBit;
        band_.carrierToNoiseDb = 50;
        band_.noiseReference = 0.3;
    }

    static constexpr double kCentreHz = 98e6;

    // A carrier with programme on it, `away` Hz from the centre.
    StationPlan station(double away, double amplitude) const {
        StationPlan result;
        result.offsetHz = away;
        result.amplitude = amplitude;
        result.pilotDeviationHz = 6750;
        result.tones = {{900, 0.4, 0.3}};
        return result;
    }

    float levelAt(double away) {
        ReceiverUnit unit(options_, std::make_unique<BandGenerator>(band_), readings_,
                          folder_.path());
        unit.step(0);
        return *unit.levelAt((kCentreHz + away) / 1e5);
    }

    void expectTrue(double level, double amplitude, const std::string& where) {
        EXPECT_NEAR(level, truth(amplitude), 0.2) << where;
        worst_ = std::max(worst_, std::fabs(level - truth(amplitude)));
        RecordProperty("worst", std::to_string(worst_));
    }

    double truth(double amplitude) const {
        return options_.dbuvAtFullScale + 20 * std::log10(amplitude);
    }

    ReceiverOptions options_;
    BandPlan band_;
    PublishedReadings readings_;
    const hmonitor::test::TempFolder folder_;
    double worst_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Samples, Levels, testing::ValuesIn(kKinds), nameOf);

TEST_P(Levels, AreTrueAllOverTheBand) {
    const double edge = GetParam().rateHz / 2 - 100e3;
    for (const double away : {-edge, -0.6 * edge, -130e3, 0.0, 50e3, 0.37 * edge, edge}) {
        // The program asks in steps of 50 kHz.
        const double hz = 50e3 * std::round(away / 50e3);
        band_.stations = {station(hz, 0.3)};
        EXPECT_NEAR(levelAt(hz), truth(0.3), 0.2) << hz;
    }
}

TEST_P(Levels, FollowTheCarriersStrength) {
    for (const double amplitude : {0.8, 0.3, 0.1, 0.05, 0.03, 0.02, 0.01}) {
        // A hundredth is one step of an eight-bit converter.
        if (GetParam().eightBit && amplitude < 0.02) continue;
        band_.stations = {station(250e3, amplitude)};
        band_.noiseReference = amplitude;
        expectTrue(levelAt(250e3), amplitude, std::to_string(amplitude));
    }
}

// A stick's converter also has an offset, which moves its thresholds.
TEST_P(Levels, OfFewStepsAreTrueWhereverTheThresholdsLie) {
    if (!GetParam().eightBit) return;
    for (const double steps : {2.6, 3.0, 3.3, 3.6, 3.9, 4.2, 4.5, 5.0, 7.0}) {
        for (const double offset : {0.0, 0.25, 0.5}) {
            const double amplitude = steps / 127.5;
            band_.stations = {station(250e3, amplitude)};
            band_.noiseReference = amplitude;
            band_.offsetI = offset / 127.5;
            band_.offsetQ = -offset / 127.5;
            expectTrue(levelAt(250e3), amplitude,
                       std::to_string(steps) + " and " + std::to_string(offset));
        }
    }
}

TEST_P(Levels, FollowTheCalibrationConstant) {
    band_.stations = {station(-200e3, 0.3)};
    for (const double constant : {60.0, 100.4, 131.7}) {
        options_.dbuvAtFullScale = constant;
        EXPECT_NEAR(levelAt(-200e3), truth(0.3), 0.2) << constant;
    }
}

TEST_P(Levels, KnowNothingOfANeighbour) {
    for (const double strongerDb : {0.0, 20.0}) {
        const double amplitude = strongerDb > 0 ? 0.08 : 0.4;
        const double away = strongerDb > 0 ? 400e3 : 300e3;
        band_.stations = {station(-200e3, amplitude),
                          station(-200e3 + away, amplitude * std::pow(10, strongerDb / 20))};
        band_.noiseReference = amplitude;
        EXPECT_NEAR(levelAt(-200e3), truth(amplitude), 0.2) << strongerDb;
    }
}

TEST_P(Levels, ComeInTheStepsThatAreAskedFor) {
    band_.stations = {station(100e3, 0.31)};
    options_.levelStepDb = 0;
    const double fine = levelAt(100e3);
    for (const double step : {0.1, 0.5, 1.0, 3.0}) {
        options_.levelStepDb = step;
        EXPECT_NEAR(levelAt(100e3), step * std::round(fine / step), 1e-4) << step;
    }
}

TEST_P(Levels, OfTheNoiseAreThatOfAChannelOfIt) {
    const double noise = truth(0.3) - 50;
    // Eight bits add 0.3 dB of noise to this.
    if (!GetParam().eightBit) {
        EXPECT_NEAR(levelAt(250e3), noise, 0.5);
    }
    options_.dbuvAtFullScale = 20;
    EXPECT_EQ(levelAt(250e3), 0);  // less than a microvolt is nothing
}

TEST_P(Levels, OfAFrameAreThoseOfItsSteps) {
    band_.stations = {station(-200e3, 0.3), station(200e3, 0.1)};
    band_.stations[0].tones.clear();
    band_.stations[1].tones.clear();
    ReceiverUnit unit(options_, std::make_unique<BandGenerator>(band_), readings_, folder_.path());
    unit.step(0);
    for (const int step : {100, 250}) {
        unit.sweep({.start = 975, .stop = 985, .stepKhz = step});
        EXPECT_TRUE(unit.step(1));
        unit.stop();
        EXPECT_TRUE(unit.frames().frameArrived());
        if (step == 250) continue;
        EXPECT_NEAR(unit.frames().level(978), truth(0.3), 0.2);
        EXPECT_NEAR(unit.frames().level(982), truth(0.1), 0.2);
        EXPECT_LT(unit.frames().level(980), truth(0.3) - 45);
    }
}

}  // namespace
}  // namespace hm16::receiver
