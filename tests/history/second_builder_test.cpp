// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/second_builder.h"

#include <gtest/gtest.h>

#include "tests/history/feed.h"

namespace history::test {
namespace {

FigureValues all(float value) {
    FigureValues values;
    values.value.fill(value);
    return values;
}

struct SecondBuilderTest : testing::Test {
    Kept kept;
    SecondBuilder builder{[this](const Second& second) { kept.keep(second); }};

    SecondBuilderTest() { builder.begin(kStation, 2); }
};

TEST_F(SecondBuilderTest, AWholeSecondIsKnownAndFinishedAtOnce) {
    builder.add(7000, 8000, all(12.345f));
    ASSERT_EQ(kept.seconds.size(), 1u);
    EXPECT_EQ(kept.seconds[0].t, 7);
    EXPECT_EQ(kept.seconds[0].station, kStation);
    EXPECT_EQ(kept.seconds[0].epoch, 2);
    EXPECT_EQ(kept.figure(0, "deviation_peak").state, State::Known);
    EXPECT_EQ(kept.figure(0, "deviation_peak").knownMs, 1000);
    EXPECT_FLOAT_EQ(kept.figure(0, "deviation_peak").value, 12.35f);
    EXPECT_FLOAT_EQ(kept.figure(0, "pilot_level").value, 12.345f);
}

TEST_F(SecondBuilderTest, EachKindHasItsOwnValue) {
    builder.add(0, 500, all(1));
    builder.add(500, 1000, all(11));
    EXPECT_EQ(kept.figure(0, "deviation_peak").value, 11);
    EXPECT_EQ(kept.figure(0, "pilot_level").value, 6);
    EXPECT_FLOAT_EQ(kept.figure(0, "level_left").value, 8.4f);  // 10 log((1.259 + 12.589) / 2)
    EXPECT_EQ(kept.figure(0, "stereo_phase").value, 6);
}

TEST_F(SecondBuilderTest, AStretchOverTheEdgeCountsInBoth) {
    builder.add(0, 1970, all(1));
    builder.add(1970, 2030, all(9));
    builder.add(2030, 3000, all(1));
    ASSERT_EQ(kept.seconds.size(), 3u);
    EXPECT_FLOAT_EQ(kept.figure(1, "pilot_level").value, 1.24f);
    EXPECT_FLOAT_EQ(kept.figure(2, "pilot_level").value, 1.24f);
    EXPECT_EQ(kept.figure(2, "deviation_peak").value, 9);
}

TEST_F(SecondBuilderTest, TheStateIsTheMostFrequentCauseOfTheUnknownPart) {
    builder.add(0, 700, all(4));
    builder.add(700, 800, FigureValues::unknown(State::Multipath));
    builder.add(800, 1000, FigureValues::unknown(State::TooNoisy));
    EXPECT_EQ(kept.figure(0, "field").knownMs, 700);
    EXPECT_EQ(kept.figure(0, "field").state, State::TooNoisy);
    EXPECT_EQ(kept.figure(0, "field").value, 4);
}

TEST_F(SecondBuilderTest, WhatIsNotToldOfASecondTheUnitWasAway) {
    builder.add(400, 900, all(4));
    builder.finish();
    EXPECT_EQ(kept.figure(0, "field").knownMs, 500);
    EXPECT_EQ(kept.figure(0, "field").state, State::UnitAway);
}

TEST_F(SecondBuilderTest, WhatIsNoNumberIsOutOfRange) {
    builder.add(0, 1000, all(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_EQ(kept.figure(0, "field").state, State::OutOfRange);
    EXPECT_EQ(kept.figure(0, "field").knownMs, 0);
}

TEST_F(SecondBuilderTest, AnotherStationEndsASecond) {
    builder.add(0, 400, all(4));
    builder.begin(90000, 2);
    builder.add(400, 1000, all(6));
    ASSERT_EQ(kept.seconds.size(), 2u);
    EXPECT_EQ(kept.seconds[0].station, kStation);
    EXPECT_EQ(kept.seconds[1].station, 90000);
    EXPECT_EQ(kept.figure(1, "field").knownMs, 600);
}

TEST_F(SecondBuilderTest, AnAxisThatRoundsToItsEndIsAtItsBegin) {
    builder.add(0, 1000, all(179.999f));
    EXPECT_EQ(kept.figure(0, "stereo_phase").value, 0);
}

TEST_F(SecondBuilderTest, TimesBefore1970HaveSecondsToo) {
    builder.add(-1500, -1000, all(4));
    EXPECT_EQ(kept.seconds.at(0).t, -2);
}

}  // namespace
}  // namespace history::test
