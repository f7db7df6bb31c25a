// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/hour_summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace hm16 {
namespace {

Readings onAir() {
    Readings r;
    r.peakModulation = 96.44f;
    r.levelFirst = -6;
    r.levelSecond = -8;
    r.stereoPhase = 44;
    r.peaksPerMinute = 3;
    return r;
}

TEST(HourSummary, WritesNineFieldsEachWithOneBlankBehindIt) {
    HourSummary summary;
    summary.add(onAir(), 0.985, 60);
    EXPECT_EQ(summary.line(7), "7 96.4 -6 -8 44 0.985 1 3 0 0 ");
    EXPECT_EQ(summary.line(23), "23 96.4 -6 -8 44 0.985 1 3 0 0 ");
}

TEST(HourSummary, WritesTheLetterAForFiguresThatAreAbsent) {
    EXPECT_EQ(HourSummary().line(0), "0 A A A A A 0 A A A ");
}

TEST(HourSummary, TakesTheHighestModulationAndMeansOfTheOthers) {
    HourSummary summary;
    summary.add(onAir(), 1, 30);
    Readings other = onAir();
    other.peakModulation = 120;
    other.levelFirst = -100;
    other.stereoPhase = 50;
    other.peaksPerMinute = 9;
    summary.add(other, 0.5, 30);
    // No power for half of the time is 3 dB less.
    EXPECT_EQ(summary.line(1), "1 120 -9 -8 47 0.75 1 6 0 0 ");
}

TEST(HourSummary, CountsASilenceOnceWhenItHasLastedThreeSeconds) {
    HourSummary summary;
    Readings quiet = onAir();
    quiet.levelFirst = quiet.levelSecond = -45;
    for (int i = 0; i < 29; ++i) summary.add(quiet, 1, 0.125);
    EXPECT_EQ(summary.line(0).substr(summary.line(0).size() - 4), "1 0 ");
    summary.add(onAir(), 1, 0.125);
    for (int i = 0; i < 23; ++i) summary.add(quiet, 1, 0.125);
    EXPECT_EQ(summary.line(0).substr(summary.line(0).size() - 4), "1 0 ");
    summary.add(quiet, 1, 0.125);
    EXPECT_EQ(summary.line(0).substr(summary.line(0).size() - 4), "2 0 ");
}

TEST(HourSummary, OneLoudChannelIsNoSilence) {
    HourSummary summary;
    Readings half = onAir();
    half.levelFirst = -60;
    summary.add(half, 1, 10);
    EXPECT_EQ(summary.line(0).substr(summary.line(0).size() - 4), "0 0 ");
}

TEST(HourSummary, CountsStretchesPastNinetyDegrees) {
    HourSummary summary;
    Readings inverted = onAir();
    inverted.stereoPhase = 91;
    summary.add(inverted, 1, 2);
    summary.add(inverted, 1, 2);
    Readings edge = onAir();
    edge.stereoPhase = 90;
    summary.add(edge, 1, 5);
    summary.add(inverted, 1, 3);
    EXPECT_EQ(summary.line(0).substr(summary.line(0).size() - 4), "0 2 ");
}

TEST(HourSummary, TimeThatDoesNotPassCountsNothing) {
    HourSummary summary;
    summary.add(onAir(), 1, 0);
    summary.add(onAir(), 1, -5);
    summary.add(onAir(), 1, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(summary.seconds(), 0);
}

// Readers keep the first 103 characters of a line.
TEST(HourSummary, TheLongestLineFitsIntoWhatReadersKeep) {
    HourSummary summary;
    Readings extreme;
    extreme.peakModulation = -9999.9f;
    extreme.levelFirst = extreme.levelSecond = -99.9f;
    extreme.stereoPhase = -179.9f;
    extreme.peaksPerMinute = 99999.9f;
    summary.add(extreme, -9999.999, 3600);
    const std::string line = summary.line(23);
    EXPECT_LE(line.size(), 103u);
    EXPECT_EQ(std::count(line.begin(), line.end(), ' '), 10);
}

}  // namespace
}  // namespace hm16
