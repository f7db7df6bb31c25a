// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/value_axis.h"

#include <gtest/gtest.h>

#include <cmath>

namespace hmonitor::test {
namespace {

using display::AxisKind;
using history::Band;

const figures::Figure& figure(std::string_view key) {
    return *figures::find(key);
}

std::vector<Band> bands(float lowest, float highest) {
    return {{lowest, (lowest + highest) / 2, highest, 1000, history::State::Known},
            {0, 0, 0, 0, history::State::UnitAway}};
}

TEST(ValueAxes, HoldAllValuesBetweenRoundEnds) {
    const auto axis = valueAxis(figure("relative_power"), bands(31, 47), {});
    EXPECT_LE(axis.lowest, 31);
    EXPECT_GE(axis.highest, 47);
    EXPECT_EQ(std::fmod(axis.lowest, 5), 0);
    EXPECT_EQ(std::fmod(axis.highest, 5), 0);
    EXPECT_EQ(axis.kind, AxisKind::Linear);
}

TEST(ValueAxes, WhatIsNotKnownHasNoPlaceOnThem) {
    EXPECT_GT(valueAxis(figure("field"), bands(70, 80), {}).lowest, 40);
}

TEST(ValueAxes, ShowABoundThatIsNear) {
    EXPECT_GE(valueAxis(figure("deviation_peak"), bands(62, 70), {}).highest, 75);
    EXPECT_LT(valueAxis(figure("deviation_peak"), bands(20, 22), {}).highest, 60);
    const auto pilot = valueAxis(figure("pilot_level"), bands(8.9f, 9.1f), {});
    EXPECT_LE(pilot.lowest, 8);
    EXPECT_GE(pilot.highest, 10);
}

TEST(ValueAxes, HoldTheCurveBesideToo) {
    EXPECT_GE(valueAxis(figure("field"), bands(70, 80), bands(90, 101)).highest, 101);
}

TEST(ValueAxes, OfASteadyValueShowItsSurroundings) {
    const auto axis = valueAxis(figure("field"), bands(84.01f, 84.02f), {});
    EXPECT_GE(axis.span(), 0.9);
    EXPECT_LT(axis.lowest, 84);
    EXPECT_GT(axis.highest, 84);
}

TEST(ValueAxes, WithoutAnyValueAreTheRangeOfTheFigure) {
    const auto axis = valueAxis(figure("pilot_level"), {}, {});
    EXPECT_LE(axis.lowest, 0);
    EXPECT_GE(axis.highest, 20);
}

TEST(ValueAxes, OfDecibelsAreDecibelAxes) {
    EXPECT_EQ(valueAxis(figure("level_left"), bands(-20, -5), {}).kind, AxisKind::Decibel);
    EXPECT_EQ(valueAxis(figure("field"), bands(70, 80), {}).kind, AxisKind::Decibel);
}

TEST(ValueAxes, OfEveryFigureHaveLength) {
    for (const figures::Figure& each : figures::all()) {
        EXPECT_GT(valueAxis(each, {}, {}).span(), 0) << each.key;
        const float middle = (each.range.lowest + each.range.highest) / 2;
        EXPECT_GT(valueAxis(each, bands(middle, middle), {}).span(), 0) << each.key;
    }
}

}  // namespace
}  // namespace hmonitor::test
