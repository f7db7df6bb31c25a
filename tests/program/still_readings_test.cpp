// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/still_readings.h"

#include <gtest/gtest.h>

namespace hmonitor {
namespace {

using namespace std::chrono_literals;

/// A station that is heard.
Readings station() {
    Readings readings;
    readings.output(1) = 80;
    readings.output(14) = 60;
    return readings;
}

struct Still : testing::Test {
    Still() {
        still.begin(0s);
        still.take(readings, 0s);
        still.takeRds(1, 4, 0s);
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
    for (int output = 1; output <= 16; ++output) {
        const display::Time at = 10s * output;
        readings.output(output) += 0.25f;
        ASSERT_GT(still.staleSeconds(at), 0) << output;
        still.take(readings, at);
        EXPECT_EQ(still.staleSeconds(at), 0) << output;
        EXPECT_EQ(still.staleSeconds(at + 2900ms), 0) << output;
    }
}

TEST_F(Still, LiveAgainWithAChangeOfRdsAlone) {
    still.takeRds(1, 4.5f, 5s);
    EXPECT_EQ(still.staleSeconds(7900ms), 0);
    EXPECT_EQ(still.staleSeconds(8s), 3);
    still.takeRds(1.5f, 4.5f, 9s);
    EXPECT_EQ(still.staleSeconds(9s), 0);
}

TEST_F(Still, AreComparedToTheBit) {
    readings.output(13) = 0.f;
    still.take(readings, 1s);
    readings.output(13) = -0.f;
    still.take(readings, 2s);
    EXPECT_EQ(still.staleSeconds(4500ms), 0);
}

TEST_F(Still, AreNeverStaleOnAnEmptyChannel) {
    // No field at all, and a field on which nothing is heard: levels at their foot, phase in the
    // middle.
    for (const float field : {0.f, 12.f}) {
        Readings empty;
        empty.output(2) = empty.output(3) = -64;
        empty.output(4) = 45;
        empty.output(14) = field;
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
