// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/still_readings.h"

#include <gtest/gtest.h>

namespace hmonitor {
namespace {

using namespace std::chrono_literals;

/// A station that is received.
Readings station() {
    Readings readings;
    readings.rdsError = 1;
    readings.rdsLevel = 4;
    readings.peakModulation = 80;
    readings.field = 60;
    return readings;
}

struct Still : testing::Test {
    Still() {
        still.begin(0s);
        still.take(readings, 0s);
    }
    Readings readings = station();
    StillReadings still;
};

TEST_F(Still, AreStaleFromThreeSecondsOnAndTellThem) {
    EXPECT_EQ(still.staleSeconds(2999ms), 0);
    EXPECT_EQ(still.staleSeconds(3000ms), 3);
    EXPECT_EQ(still.staleSeconds(64900ms), 64);
}

TEST_F(Still, LiveAgainWithTheFirstChangeOfAnyOutput) {
    display::Time at = 0s;
    for (const figures::Output output : figures::kOutputs) {
        at += 10s;
        readings.*output += 0.25f;
        ASSERT_GT(still.staleSeconds(at), 0) << at.count();
        still.take(readings, at);
        EXPECT_EQ(still.staleSeconds(at), 0) << at.count();
        EXPECT_EQ(still.staleSeconds(at + 2900ms), 0) << at.count();
    }
}

TEST_F(Still, LiveAgainWithAChangeOfRdsAlone) {
    readings.rdsLevel = 4.5f;
    still.take(readings, 5s);
    EXPECT_EQ(still.staleSeconds(7900ms), 0);
    EXPECT_EQ(still.staleSeconds(8s), 3);
    readings.rdsError = 1.5f;
    still.take(readings, 9s);
    EXPECT_EQ(still.staleSeconds(9s), 0);
}

TEST_F(Still, AreComparedToTheBit) {
    readings.carrierDeviation = 0.f;
    still.take(readings, 1s);
    readings.carrierDeviation = -0.f;
    still.take(readings, 2s);
    EXPECT_EQ(still.staleSeconds(4500ms), 0);
}

TEST_F(Still, AreNeverStaleOnAnEmptyChannel) {
    // No field, and a field without anything to hear: the levels are at their lowest, the phase in
    // the middle.
    for (const float field : {0.f, 12.f}) {
        Readings empty;
        empty.levelFirst = empty.levelSecond = -64;
        empty.stereoPhase = 45;
        empty.field = field;
        still.take(empty, 1s);
        EXPECT_EQ(still.staleSeconds(3600s), 0) << field;
    }
}

TEST_F(Still, CountFromTheTuningAndOnlyWhileTheUnitMeasures) {
    still.begin(100s);
    EXPECT_EQ(still.staleSeconds(102s), 0);
    EXPECT_EQ(still.staleSeconds(103s), 3);
    still.end();
    EXPECT_EQ(still.staleSeconds(200s), 0);
}

TEST(StillReadingsOfAUnit, ThatNeverMeasuredAreNotStale) {
    StillReadings still;
    still.take(station(), 0s);
    EXPECT_EQ(still.staleSeconds(60s), 0);
}

}  // namespace
}  // namespace hmonitor
