// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/plot.h"

#include <gtest/gtest.h>

#include <functional>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

class Plots : public testing::Test {
 protected:
    Plots() {
        form.show();
        plot.x = PlotAxis{AxisKind::Linear, 40, 60};
        plot.reach = Plot::Reach{0, 100, 2, 80};
        plot.onLook = [this] { ++looks; };
        plot.onMark = [this] { ++marks; };
    }
    void expectRange(double lowest, double highest) {
        desktop.settle();
        EXPECT_NEAR(plot.x.get().lowest, lowest, 1e-9);
        EXPECT_NEAR(plot.x.get().highest, highest, 1e-9);
    }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
    Plot& plot = form.Plot1;
    Hand& hand = desktop.hand;
    int looks = 0;
    int marks = 0;
};

TEST_F(Plots, ZoomsAboutThePlaceOfThePointer) {
    hand.zoom(plot, 2, 0.25);
    expectRange(42.5, 52.5);
    hand.zoom(plot, 0.5, 0.25);
    expectRange(40, 60);
    EXPECT_EQ(looks, 2);
}

TEST_F(Plots, StopsAtTheShortestAndTheLongestRange) {
    hand.zoom(plot, 1000, 0.5);
    expectRange(49, 51);
    hand.zoom(plot, 2, 0.5);
    expectRange(49, 51);
    EXPECT_EQ(looks, 1) << "nothing moved";
    hand.zoom(plot, 1e-9, 0.5);
    expectRange(10, 90);
}

TEST_F(Plots, ZoomingOutAtAnEndStaysWithinReach) {
    plot.x = PlotAxis{AxisKind::Linear, 90, 100};
    hand.zoom(plot, 0.25, 0);
    expectRange(60, 100);
}

TEST_F(Plots, ADragStopsAtTheEnds) {
    hand.shift(plot, 0.5);
    expectRange(50, 70);
    hand.shift(plot, 50);
    expectRange(80, 100);
    hand.shift(plot, -50);
    expectRange(0, 20);
}

TEST_F(Plots, AReachThatIsShorterThanItsShortestRangeIsShownWhole) {
    plot.reach = Plot::Reach{0, 1, 2, 80};
    hand.zoom(plot, 2, 0.5);
    expectRange(0, 1);
}

TEST_F(Plots, WithoutReachTheHandMovesMarksAlone) {
    plot.reach = Plot::Reach{};
    hand.zoom(plot, 2, 0.5);
    hand.shift(plot, 1);
    hand.press(plot, PlotKey::First);
    expectRange(40, 60);
    EXPECT_EQ(looks, 0);
    hand.point(plot, 0, 0.5);
    desktop.settle();
    EXPECT_EQ(plot.mark(0), 50);
}

TEST_F(Plots, KeysZoomMoveAndGoToTheEnds) {
    hand.press(plot, PlotKey::In);
    expectRange(45, 55);
    hand.press(plot, PlotKey::Out);
    expectRange(40, 60);
    hand.press(plot, PlotKey::Right);
    expectRange(42.5, 62.5);
    hand.press(plot, PlotKey::Left);
    expectRange(40, 60);
    hand.press(plot, PlotKey::First);
    expectRange(0, 20);
    hand.press(plot, PlotKey::Last);
    expectRange(80, 100);
}

TEST_F(Plots, HomeGoesToWhereWhatThereIsBegins) {
    plot.reach = Plot::Reach{0, 100, 2, 80, 30};
    hand.press(plot, PlotKey::First);
    expectRange(30, 50);
    hand.zoom(plot, 0.01, 0.5);
    expectRange(0, 80);
}

TEST_F(Plots, KeysZoomAboutTheMarkThatIsInView) {
    hand.point(plot, 0, 0.2);
    hand.press(plot, PlotKey::In);
    expectRange(42, 52);
    plot.mark(0, 3);
    hand.press(plot, PlotKey::Out);
    expectRange(37, 57);
}

TEST_F(Plots, MarksArePutByTheHandAndMovedByKeys) {
    hand.point(plot, 0, 0.25);
    hand.point(plot, 1, 0.75);
    hand.press(plot, PlotKey::MarkRight);
    hand.press(plot, PlotKey::OtherLeft);
    desktop.settle();
    EXPECT_NEAR(*plot.mark(0), 45.2, 1e-9);
    EXPECT_NEAR(*plot.mark(1), 54.8, 1e-9);
    EXPECT_EQ(marks, 4);
    hand.press(plot, PlotKey::NoMarks);
    desktop.settle();
    EXPECT_FALSE(plot.mark(0));
    EXPECT_FALSE(plot.mark(1));
    EXPECT_EQ(marks, 5);
}

TEST_F(Plots, AKeyBringsAMarkFromOutsideIntoTheMiddle) {
    plot.mark(0, 7);
    hand.press(plot, PlotKey::MarkRight);
    hand.press(plot, PlotKey::OtherRight);
    desktop.settle();
    EXPECT_EQ(plot.mark(0), 50);
    EXPECT_EQ(plot.mark(1), 50);
}

TEST_F(Plots, APointBesideTheCurvesIsTheirEnd) {
    hand.point(plot, 0, 1.4);
    desktop.settle();
    EXPECT_EQ(plot.mark(0), 60);
}

TEST_F(Plots, WhatTheProgramSetsFiresNothing) {
    plot.x = PlotAxis{AxisKind::Linear, 0, 20};
    plot.mark(0, 5);
    EXPECT_EQ(looks, 0);
    EXPECT_EQ(marks, 0);
}

TEST_F(Plots, EachChangeIsDrawnAndNothingElse) {
    const auto draws = [&](const std::function<void()>& change) {
        const auto before = plot.revision();
        change();
        return plot.revision() != before;
    };
    EXPECT_TRUE(draws([&] { plot.series({PlotSeries{}}); }));
    EXPECT_TRUE(draws([&] { plot.append(0, PlotPoint::of(1, 2)); }));
    EXPECT_TRUE(draws([&] { plot.reference(PlotSeries{}); }));
    EXPECT_TRUE(draws([&] { plot.limits({{75, kRed}}); }));
    EXPECT_TRUE(draws([&] { plot.flags({{50, kWhite}}); }));
    EXPECT_TRUE(draws([&] { plot.mark(1, 50); }));
    EXPECT_FALSE(draws([&] { plot.mark(1, 50); }));
    EXPECT_TRUE(draws([&] { plot.reference(std::nullopt); }));
    EXPECT_FALSE(draws([&] { plot.reference(std::nullopt); }));
}

TEST_F(Plots, ALoadEmptiesIt) {
    plot.series({PlotSeries{}});
    plot.mark(0, 50);
    plot.causes({{8, kCyan}});
    plot.limits({{75, kRed}});
    form.unload();
    form.load();
    EXPECT_TRUE(plot.series().empty());
    EXPECT_TRUE(plot.limits().empty());
    EXPECT_FALSE(plot.mark(0));
    EXPECT_NE(plot.causeColour(8), kCyan);
    EXPECT_EQ(plot.x.get().lowest, 0);
}

TEST_F(Plots, ACauseHasItsColourAndAnUnknownOneGrey) {
    plot.causes({{8, kCyan}, {9, kRed}});
    EXPECT_EQ(plot.causeColour(9), kRed);
    EXPECT_EQ(plot.causeColour(3), Colour{0x808080});
}

TEST_F(Plots, ATimeAxisIsDividedByItsClock) {
    constexpr double kNoon = 1'795'262'400'000;  // UTC
    plot.x = PlotAxis{AxisKind::Moments, kNoon, kNoon + 3'600'000};
    plot.clock({[](std::int64_t) { return -3 * 3600; }, {}});
    const auto ticks = plot.ticksAcross(3000);
    ASSERT_FALSE(ticks.empty());
    EXPECT_EQ(ticks.front().words, "09:00");
}

}  // namespace
}  // namespace display::test
