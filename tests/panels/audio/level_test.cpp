// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/audio/level_bar.h"

#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using display::Colour;

constexpr Colour kLitBar{0xffff00};
constexpr Colour kHigh{0x2317fd};
constexpr Colour kDarkBar{0x404040};

TEST(LevelBar, StandsTwoElementsADecibelFromMinus25) {
    LevelBar bar;
    bar.take(64);
    EXPECT_EQ(bar.bar, 50);
    EXPECT_EQ(bar.peak, 51);
    bar.take(40);
    EXPECT_EQ(bar.bar, 2);
    EXPECT_EQ(bar.peak, 51);
}

TEST(LevelBar, IsClampedAtBothEnds) {
    LevelBar bar;
    for (const int reading : {-100, 0, 38, 39}) {
        bar.take(reading);
        EXPECT_EQ(bar.bar, 0) << reading;
    }
    EXPECT_EQ(bar.peak, 1);
    for (const int reading : {69, 70, 500}) {
        bar.take(reading);
        EXPECT_EQ(bar.bar, 60) << reading;
        EXPECT_EQ(bar.peak, 61) << reading;
    }
}

TEST(LevelBar, MarkMovesUpWhenItStandsAtTheBarOrBelow) {
    LevelBar bar;
    EXPECT_TRUE(bar.take(50));
    EXPECT_EQ(bar.peak, 23);
    EXPECT_FALSE(bar.take(50)) << "the mark stands above the bar";
    EXPECT_TRUE(bar.fall());
    EXPECT_EQ(bar.peak, 22);
    EXPECT_TRUE(bar.take(50)) << "the mark stands at the bar";
    EXPECT_EQ(bar.peak, 23);
}

TEST(LevelBar, MarkFalls61ElementsFromTheTopInSilence) {
    LevelBar bar;
    bar.take(69);
    bar.take(0);
    int falls = 0;
    while (bar.fall()) ++falls;
    EXPECT_EQ(falls, 61);
    EXPECT_EQ(bar.peak, 0);
}

TEST(LevelWindow, EndsWithItsHighestReadingAndStartsAnew) {
    LevelWindow window;
    for (const int reading : {60, 67, 61}) window.take(reading);
    EXPECT_EQ(window.close(), 3);
    EXPECT_EQ(window.close(), -64);
}

class Level : public testing::Test {
 protected:
    void SetUp() override { bench.start(); }
    Colour left(std::size_t i) { return bench.formB.LineAudL[i].colour; }
    Colour right(std::size_t i) { return bench.formB.LineAudR[i].colour; }

    RackBench bench;
};

TEST_F(Level, FigureComesEverySixthBeatAndTheSixthReadingDoesNotCount) {
    for (const float level : {-20.f, -10.f, -12.5f, -30.f, -10.5f}) {
        bench.readings.levelFirst = level;
        bench.readings.levelSecond = level + 13;
        bench.beat();
        EXPECT_NE(bench.formB.PromL.caption, "-10");
    }
    bench.readings.levelFirst = bench.readings.levelSecond = 5;
    bench.beat();
    EXPECT_EQ(bench.formB.PromL.caption, "-10");
    EXPECT_EQ(bench.formB.PromL.colour, Colour{0x000000});
    EXPECT_EQ(bench.formB.PromR.caption, "3");
    EXPECT_EQ(bench.formB.PromR.colour, Colour{0x0000ff});

    bench.readings.levelFirst = bench.readings.levelSecond = 0;
    bench.beat(5);
    EXPECT_EQ(bench.formB.PromL.caption, "-10");
    bench.beat();
    EXPECT_EQ(bench.formB.PromL.caption, "0") << "the 5 of the sixth beat is gone";
    EXPECT_EQ(bench.formB.PromR.caption, "0");
    EXPECT_EQ(bench.formB.PromR.colour, Colour{0x000000});
}

TEST_F(Level, ReadingIsTheFloorOfTheLevel) {
    bench.readings.levelFirst = -0.1f;
    bench.readings.levelSecond = -24.5f;
    bench.beat();
    EXPECT_EQ(bench.formB.BarL.bar, 48);
    EXPECT_EQ(bench.formB.BarR.bar, 0);
    bench.beat(5);
    EXPECT_EQ(bench.formB.PromL.caption, "-1");
    EXPECT_EQ(bench.formB.PromR.caption, "-25");
}

TEST_F(Level, BarIsYellowUpToZeroDecibelsAndRedAbove) {
    bench.readings.levelFirst = 3;
    bench.readings.levelSecond = -15;
    bench.beat();
    for (std::size_t i = 0; i < 62; ++i) {
        EXPECT_EQ(left(i), i <= 50 ? kLitBar : i <= 57 ? kHigh : kDarkBar) << i;
        EXPECT_EQ(right(i), i <= 20 ? kLitBar : i == 21 ? kHigh : kDarkBar) << i;
    }
}

TEST_F(Level, SilenceLeavesTheFirstElementLit) {
    bench.readings.levelFirst = bench.readings.levelSecond = -64;
    bench.beat();
    EXPECT_EQ(left(0), kLitBar);
    EXPECT_EQ(left(1), kHigh);
    EXPECT_EQ(left(2), kDarkBar);
    bench.readings.levelFirst = -90;
    bench.beat();
    EXPECT_EQ(left(0), kLitBar);
}

TEST_F(Level, FiveDecibelsAndMoreReachTheLastElement) {
    bench.readings.levelFirst = 5;
    bench.readings.levelSecond = 20;
    bench.beat();
    EXPECT_EQ(left(60), kHigh);
    EXPECT_EQ(left(61), kHigh);
    EXPECT_EQ(right(61), kHigh);
    EXPECT_EQ(bench.formB.BarR.bar, 60);
}

TEST_F(Level, MarkStaysWhereTheBarWas) {
    bench.readings.levelFirst = 5;
    bench.beat();
    bench.readings.levelFirst = -64;
    bench.beat();
    EXPECT_EQ(left(60), kDarkBar);
    EXPECT_EQ(left(61), kHigh);
}

TEST_F(Level, ElementThatTheMarkLeavesGoesDarkOnTheNextBeat) {
    bench.readings.levelFirst = 5;
    bench.beat();
    bench.readings.levelFirst = -64;
    bench.beat();
    bench.formB.Timer3.onTick();
    EXPECT_EQ(bench.formB.BarL.peak, 60);
    EXPECT_EQ(left(60), kHigh);
    EXPECT_EQ(left(61), kHigh);
    bench.beat();
    EXPECT_EQ(left(60), kHigh);
    EXPECT_EQ(left(61), kDarkBar);
}

TEST_F(Level, MarksFallOneElementEvery300Milliseconds) {
    bench.readings.levelFirst = bench.readings.levelSecond = 5;
    bench.beat();
    bench.readings.levelFirst = bench.readings.levelSecond = -64;
    bench.advance(std::chrono::milliseconds(269));
    EXPECT_EQ(bench.formB.BarL.peak, 61);
    bench.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(bench.formB.BarL.peak, 60);
    EXPECT_EQ(bench.formB.BarR.peak, 60);
    bench.advance(std::chrono::milliseconds(17699));
    EXPECT_EQ(bench.formB.BarL.peak, 2);
    bench.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(bench.formB.BarL.peak, 1);
}

TEST_F(Level, ChannelsAreTheirOwn) {
    bench.readings.levelFirst = -10;
    bench.readings.levelSecond = -20;
    bench.beat();
    EXPECT_EQ(bench.formB.BarL.bar, 30);
    EXPECT_EQ(bench.formB.BarR.bar, 10);
}

}  // namespace
}  // namespace hmonitor::test
