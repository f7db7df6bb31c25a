// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panels/modulation/multipath_meter.h"
#include "tests/panels/modulation/demo_start.h"

namespace hmonitor::test {
namespace {

using Draw = MultipathMeter::Draw;

const display::Colour kGoodLit{0x37ff4b};
const display::Colour kGoodDark{0x1b6013};

/// Adds ten samples of one figure; the next call ends the window.
void fill(MultipathMeter& meter, int figure, float field = 60) {
    for (int i = 0; i < 10; ++i) EXPECT_EQ(meter.take(figure, field), Draw::Nothing) << i;
}

TEST(MultipathMeter, FirstWindowAlwaysDraws) {
    MultipathMeter meter;
    fill(meter, 0);
    EXPECT_EQ(meter.take(0, 60), Draw::Figure);
    EXPECT_EQ(meter.MultipathShown, 0);
    EXPECT_EQ(meter.MultipathCount, 0);
    EXPECT_EQ(meter.MultipathWorst, -1);
}

TEST(MultipathMeter, TheWorstOfTenIsTheFigureAndTheClosingSampleIsNone) {
    MultipathMeter meter;
    for (const int figure : {3, 9, 2, 17, 4, 0, 16, 5, 6, 7}) meter.take(figure, 60);
    EXPECT_EQ(meter.take(90, 60), Draw::Figure);
    EXPECT_EQ(meter.MultipathShown, 17);
    fill(meter, 4);
    meter.take(4, 60);
    EXPECT_EQ(meter.MultipathShown, 4);
}

TEST(MultipathMeter, AnEqualFigureIsNotDrawnAndOpensANewWindow) {
    MultipathMeter meter;
    fill(meter, 12);
    EXPECT_EQ(meter.take(12, 60), Draw::Figure);
    fill(meter, 12);
    EXPECT_EQ(meter.take(12, 60), Draw::Nothing);
    EXPECT_EQ(meter.MultipathCount, 0);
    EXPECT_EQ(meter.MultipathWorst, -1);
}

TEST(MultipathMeter, AWeakFieldIsBadOnceAndTheWindowStaysClosed) {
    MultipathMeter meter;
    fill(meter, 5);
    EXPECT_EQ(meter.take(5, 44.9f), Draw::Bad);
    for (int i = 0; i < 15; ++i) EXPECT_EQ(meter.take(40, 44.9f), Draw::Nothing);
    EXPECT_EQ(meter.MultipathCount, 10);
    EXPECT_EQ(meter.MultipathWorst, 5);
    EXPECT_EQ(meter.take(40, 44.99f), Draw::Nothing);
    EXPECT_EQ(meter.take(40, 45.f), Draw::Figure);
    EXPECT_EQ(meter.MultipathShown, 5);
}

TEST(MultipathMeter, TheSameFigureIsDrawnAgainAfterAWeakField) {
    MultipathMeter meter;
    fill(meter, 5);
    meter.take(5, 60);
    fill(meter, 5);
    EXPECT_EQ(meter.take(5, 20), Draw::Bad);
    EXPECT_EQ(meter.take(5, 60), Draw::Figure);
}

TEST(MultipathMeter, EachElementHasItsLimit) {
    const int limits[] = {28, 21, 16, 11, 6};
    for (int element = 0; element < 5; ++element) {
        EXPECT_TRUE(MultipathMeter::lit(element, limits[element] - 1)) << element;
        EXPECT_FALSE(MultipathMeter::lit(element, limits[element])) << element;
    }
    EXPECT_TRUE(MultipathMeter::good(15));
    EXPECT_FALSE(MultipathMeter::good(16));
    EXPECT_FALSE(MultipathMeter::bad(27));
    EXPECT_TRUE(MultipathMeter::bad(28));
}

/// The tuned rack with the meter in its first state.
class MultipathRow : public testing::Test {
 protected:
    void begin(float field, std::string correction = "0") {
        bench.write("hm-16.dat", lines({"1", correction, "0", "1", "0", "0", "0", "0"}));
        bench.readings.field = field;
        bench.start();
        bench.form1.meter = {};
        bench.form1.multybad.visible = false;
    }
    void window(float figure) {
        bench.readings.multipath = figure;
        bench.beat(11);
    }
    int row() {
        int lit = 0;
        for (std::size_t i = 0; i < 5; ++i) {
            const bool on = bench.form1.multypath[i].picture == "multyon";
            EXPECT_TRUE(on || bench.form1.multypath[i].picture == "multyoff") << i;
            if (on) {
                EXPECT_EQ(lit, static_cast<int>(i)) << "a gap in the row";
                ++lit;
            }
        }
        return lit;
    }

    RackBench bench;
};

TEST_F(MultipathRow, DrawsTheFigureWithTheEleventhHeartbeat) {
    begin(60);
    bench.readings.multipath = 5;
    for (display::Picture& element : bench.form1.multypath) element.picture = "multyoff";
    bench.beat(10);
    EXPECT_EQ(row(), 0);
    bench.beat();
    EXPECT_EQ(row(), 5);
}

TEST_F(MultipathRow, GetsShorterAtEveryLimit) {
    begin(60);
    struct Case {
        float figure;
        int lit;
        bool good;
        bool bad;
    };
    const Case cases[] = {{5, 5, true, false},   {6, 4, true, false},   {10, 4, true, false},
                          {11, 3, true, false},  {15, 3, true, false},  {16, 2, false, false},
                          {20, 2, false, false}, {21, 1, false, false}, {27, 1, false, false},
                          {28, 0, false, true},  {0, 5, true, false}};
    for (const Case& at : cases) {
        window(at.figure);
        EXPECT_EQ(row(), at.lit) << at.figure;
        EXPECT_EQ(bench.form1.multygood.colour, at.good ? kGoodLit : kGoodDark) << at.figure;
        EXPECT_EQ(bench.form1.multybad.visible, at.bad) << at.figure;
    }
}

TEST_F(MultipathRow, TakesTheFigureWithoutItsSign) {
    begin(60);
    window(-30);
    EXPECT_TRUE(bench.form1.multybad.visible);
    EXPECT_EQ(row(), 0);
}

TEST_F(MultipathRow, At449TheFieldIsTooWeak) {
    begin(44.9f);
    for (display::Picture& element : bench.form1.multypath) element.picture = "multyon";
    bench.form1.multygood.colour = kGoodLit;
    window(5);
    EXPECT_TRUE(bench.form1.multybad.visible);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(bench.form1.multygood.colour, kGoodDark);
}

TEST_F(MultipathRow, At450TheFieldSuffices) {
    begin(45);
    window(5);
    EXPECT_FALSE(bench.form1.multybad.visible);
    EXPECT_EQ(row(), 5);
    EXPECT_EQ(bench.form1.multygood.colour, kGoodLit);
}

TEST_F(MultipathRow, ACorrectionOfATenthLessMakesTheFieldTooWeak) {
    begin(45, "-0.1");
    window(5);
    EXPECT_TRUE(bench.form1.multybad.visible);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(bench.form1.multygood.colour, kGoodDark);
}

TEST_F(MultipathRow, ComesBackWithTheFieldWithinOneHeartbeat) {
    begin(30);
    window(5);
    EXPECT_TRUE(bench.form1.multybad.visible);
    bench.beat(7);
    bench.readings.field = 45;
    bench.beat();
    EXPECT_FALSE(bench.form1.multybad.visible);
    EXPECT_EQ(row(), 5);
}

TEST_F(MultipathRow, IsNotPaintedForAnEqualFigure) {
    begin(60);
    window(8);
    EXPECT_EQ(row(), 4);
    bench.form1.multypath[0].picture = "untouched";
    window(8);
    EXPECT_EQ(bench.form1.multypath[0].picture, "untouched");
    window(9);
    EXPECT_EQ(bench.form1.multypath[0].picture, "multyon");
}

TEST_F(MultipathRow, ATuningIsOneMoreSample) {
    begin(60);
    bench.beat(3);
    EXPECT_EQ(bench.form1.meter.MultipathCount, 3);
    bench.formB.cambfre();
    EXPECT_EQ(bench.form1.meter.MultipathCount, 4);
}

TEST_F(MultipathRow, StandsAsItIsInDemoMode) {
    bench.readings.field = 60;
    bench.readings.multipath = 5;
    startInDemoMode(bench);
    bench.beat(60);
    EXPECT_EQ(bench.form1.meter.MultipathCount, 0);
    EXPECT_EQ(row(), 0);
    EXPECT_FALSE(bench.form1.multybad.visible);
}

}  // namespace
}  // namespace hmonitor::test
