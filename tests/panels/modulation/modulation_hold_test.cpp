// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/modulation/modulation_hold.h"

#include <gtest/gtest.h>

namespace hmonitor::test {
namespace {

TEST(ModulationBar, RisesAtOnceAndFallsByAtMostTwo) {
    ModulationBar bar;
    EXPECT_EQ(bar.follow(100), 100);
    EXPECT_EQ(bar.follow(99), 99);
    EXPECT_EQ(bar.follow(97), 97);
    EXPECT_EQ(bar.follow(94), 95);
    EXPECT_EQ(bar.follow(160), 160);
}

TEST(ModulationBar, From100To50Takes25Steps) {
    ModulationBar bar;
    bar.follow(100);
    int steps = 0;
    while (bar.ModBarValue > 50 && steps < 100) {
        bar.follow(50);
        ++steps;
    }
    EXPECT_EQ(steps, 25);
    EXPECT_EQ(bar.ModBarValue, 50);
    EXPECT_EQ(bar.follow(50), 50);
}

TEST(ModulationBar, JumpsDownWithoutFalling) {
    ModulationBar bar;
    bar.follow(120);
    EXPECT_EQ(bar.jumpTo(7), 7);
    EXPECT_EQ(bar.ModBarValue, 7);
}

TEST(ModulationHold, HundredPercentAreSeventyFiveKHz) {
    EXPECT_FLOAT_EQ(ModulationHold::kHzOf(100), 75);
    EXPECT_FLOAT_EQ(ModulationHold::kHzOf(80), 60);
    EXPECT_FLOAT_EQ(ModulationHold::kHzOf(0), 0);
}

TEST(ModulationHold, PeakStays21TicksThenFallsFiveEachThirdTick) {
    ModulationHold held;
    EXPECT_TRUE(held.take(80));
    EXPECT_TRUE(held.take(120));
    for (int tick = 1; tick <= 20; ++tick) {
        EXPECT_FALSE(held.take(80)) << tick;
        EXPECT_EQ(held.PeakHoldValue, 120) << tick;
        EXPECT_EQ(held.PeakHoldKHz, 90) << tick;
    }
    EXPECT_TRUE(held.take(80));
    EXPECT_EQ(held.PeakHoldValue, 115);
    EXPECT_EQ(held.PeakHoldCount, 18);
    for (const float step : {110.f, 105.f, 100.f, 95.f, 90.f, 85.f, 80.f}) {
        EXPECT_FALSE(held.take(80));
        EXPECT_FALSE(held.take(80));
        EXPECT_TRUE(held.take(80));
        EXPECT_EQ(held.PeakHoldValue, step);
    }
    EXPECT_TRUE(held.take(80));
    EXPECT_EQ(held.PeakHoldValue, 80);
    EXPECT_EQ(held.PeakHoldCount, 0);
}

TEST(ModulationHold, StopsAtTheLiveValueBetweenTwoSteps) {
    ModulationHold held;
    held.take(83);
    for (int tick = 1; tick <= 20; ++tick) held.take(80);
    EXPECT_TRUE(held.take(80));
    EXPECT_EQ(held.PeakHoldValue, 80);
    EXPECT_FLOAT_EQ(held.PeakHoldKHz, 60);
    EXPECT_EQ(held.PeakHoldCount, 0);
}

TEST(ModulationHold, AnEqualValueStartsTheHoldAnew) {
    ModulationHold held;
    held.take(100);
    for (int tick = 1; tick <= 20; ++tick) held.take(80);
    EXPECT_TRUE(held.take(100));
    EXPECT_EQ(held.PeakHoldCount, 0);
    for (int tick = 1; tick <= 20; ++tick) EXPECT_FALSE(held.take(80)) << tick;
    EXPECT_EQ(held.PeakHoldValue, 100);
}

TEST(ModulationHold, BelowNothingThePercentIsZeroAndTheKHzNegativeOnce) {
    ModulationHold held;
    held.take(2);
    for (int tick = 1; tick <= 20; ++tick) held.take(-4);
    EXPECT_TRUE(held.take(-4));
    EXPECT_EQ(held.PeakHoldValue, 0);
    EXPECT_FLOAT_EQ(held.PeakHoldKHz, -2.25f);
    EXPECT_TRUE(held.take(0));
    EXPECT_EQ(held.PeakHoldKHz, 0);
}

}  // namespace
}  // namespace hmonitor::test
