// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <cmath>

#include "core/numbers.h"
#include "tests/panels/audio/shown_digit.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

constexpr display::Colour kLitPower{0x2317fd};
constexpr display::Colour kDarkPower{0x1d1c20};

TEST(PowerFigure, DropFrom60To40HoldsFor11UpdatesAndThenFallsEveryThird) {
    PowerFigure power;
    power.take(60);
    for (int i = 1; i <= 10; ++i) {
        power.take(40);
        EXPECT_EQ(power.PowerShown, 60) << i;
    }
    power.take(40);
    EXPECT_EQ(power.PowerShown, 59);
    for (int figure = 58; figure >= 40; --figure) {
        power.take(40);
        power.take(40);
        EXPECT_EQ(power.PowerShown, figure + 1);
        power.take(40);
        EXPECT_EQ(power.PowerShown, figure);
    }
    power.take(40);
    EXPECT_EQ(power.PowerShown, 40);
    EXPECT_EQ(power.PowerTicks, 0);
    for (int i = 0; i < 50; ++i) power.take(40);
    EXPECT_EQ(power.PowerShown, 40);
}

TEST(PowerFigure, RiseShowsAtOnceAndStartsTheHoldAnew) {
    PowerFigure power;
    power.take(60);
    for (int i = 0; i < 10; ++i) power.take(40);
    power.take(61);
    EXPECT_EQ(power.PowerShown, 61);
    for (int i = 0; i < 10; ++i) power.take(40);
    EXPECT_EQ(power.PowerShown, 61);
    power.take(40);
    EXPECT_EQ(power.PowerShown, 60);
}

TEST(PowerFigure, FallThatPassesTheReadingTakesIt) {
    PowerFigure power;
    power.take(60);
    for (int i = 0; i < 10; ++i) power.take(40);
    power.take(59);
    EXPECT_EQ(power.PowerShown, 59);
    EXPECT_EQ(power.PowerTicks, 8);
    power.take(58);
    power.take(58);
    EXPECT_EQ(power.PowerTicks, 10);
    power.take(58);
    EXPECT_EQ(power.PowerShown, 58);
}

TEST(PowerFigure, NeverGoesBelowZero) {
    PowerFigure power;
    power.take(1);
    for (int i = 0; i < 40; ++i) power.take(-7);
    EXPECT_EQ(power.PowerShown, 0);
}

class Power : public testing::Test {
 protected:
    void SetUp() override { bench.start(); }
    /// The needle's angle in degrees, from vertical to the right.
    double needle() {
        const auto& line = bench.formB.LinePo;
        EXPECT_EQ(line.x1, 1350);
        EXPECT_EQ(line.y1, 2315);
        const double x = line.x2 - 1350;
        const double y = 2315 - line.y2;
        EXPECT_NEAR(std::hypot(x, y), 1865, 0.01);
        return std::atan2(x, y) * 180 / 3.14159265358979323846;
    }
    std::string tens() { return shownFigure(bench.formB.powerTens, kLitPower, kDarkPower); }
    std::string units() { return shownFigure(bench.formB.powerUnits, kLitPower, kDarkPower); }

    RackBench bench;
};

TEST_F(Power, NeedleStandsAtRestForZeroAndUpFor25) {
    bench.readings.relativePower = 0;
    bench.advance(100ms);
    EXPECT_NEAR(needle(), -25, 0.001);
    bench.readings.relativePower = 2.5f;
    bench.advance(100ms);
    EXPECT_NEAR(needle(), 0, 0.001);
    EXPECT_EQ(tens(), "2");
    EXPECT_EQ(units(), "5");
    EXPECT_EQ(bench.state.PowerText, "25");
}

TEST_F(Power, AtRestTheHoldRisesByThreeQuartersAndReturns) {
    for (int i = 0; i < 5; ++i) {
        bench.advance(100ms);
        EXPECT_DOUBLE_EQ(bench.form1.PowerHold, 115.75);
        EXPECT_NEAR(needle(), -25, 0.001);
    }
}

TEST_F(Power, NeedleJumpsUpAndFallsThreeQuartersOfADegreeAnUpdate) {
    bench.readings.relativePower = 5;
    bench.advance(100ms);
    EXPECT_NEAR(needle(), 25, 0.001);
    bench.readings.relativePower = 0;
    bench.advance(100ms);
    EXPECT_NEAR(needle(), 24.25, 0.001);
    bench.advance(900ms);
    EXPECT_NEAR(needle(), 17.5, 0.001);
}

TEST_F(Power, NeedleTakesTheWholePartAndTheDigitsTheRoundedFigure) {
    bench.readings.relativePower = 3.17f;
    bench.advance(100ms);
    EXPECT_NEAR(needle(), 6, 0.001);
    EXPECT_EQ(tens(), "3");
    EXPECT_EQ(units(), "2");
}

TEST_F(Power, DigitsRoundHalvesToTheEvenFigure) {
    const std::pair<float, const char*> cases[] = {{2.25f, "22"}, {2.75f, "28"}, {3.25f, "32"}};
    for (const auto& [said, digits] : cases) {
        bench.readings.relativePower = said;
        bench.advance(100ms);
        EXPECT_EQ(tens() + units(), digits) << said;
    }
    EXPECT_EQ(bench.state.PowerText, "32.5");
}

TEST_F(Power, NeedleCutsTowardsZeroBelowNothingToo) {
    bench.readings.relativePower = -0.09f;
    bench.advance(100ms);
    EXPECT_NEAR(needle(), -25, 0.001);
    EXPECT_EQ(bench.state.PowerText, "-0.9");
    EXPECT_EQ(tens() + units(), "00");
}

TEST_F(Power, FigureStopsAtTheEndOf16Bits) {
    bench.readings.relativePower = 9000;
    bench.advance(100ms);
    EXPECT_EQ(bench.formB.power.PowerShown, 32767);
}

TEST_F(Power, HundredLeavesTheTensPlaceAsItWas) {
    bench.readings.relativePower = 7.3f;
    bench.advance(100ms);
    EXPECT_EQ(tens(), "7");
    EXPECT_EQ(units(), "3");
    bench.readings.relativePower = 10.4f;
    bench.advance(100ms);
    EXPECT_EQ(tens(), "7");
    EXPECT_EQ(units(), "4");
    EXPECT_EQ(bench.formB.PowerDigit, 4);
    EXPECT_EQ(bench.formB.power.PowerShown, 104);
}

TEST_F(Power, OtherPlacesDrawNothing) {
    bench.readings.relativePower = 7.3f;
    bench.advance(100ms);
    for (const int place : {0, 3, -1}) {
        bench.formB.PowerDigit = 8;
        bench.formB.PowerPlace = place;
        bench.formB.Command_DibujoLCD_Potencia();
        EXPECT_EQ(tens() + units(), "73") << place;
    }
    bench.formB.PowerPlace = 1;
    bench.formB.Command_DibujoLCD_Potencia();
    EXPECT_EQ(tens() + units(), "83");
}

TEST_F(Power, UnitsAreNumberedBackwards) {
    EXPECT_EQ(bench.formB.powerTens.segment(0).name(), "Line30");
    EXPECT_EQ(bench.formB.powerTens.segment(6).name(), "Line36");
    EXPECT_EQ(bench.formB.powerUnits.segment(0).name(), "Line43");
    EXPECT_EQ(bench.formB.powerUnits.segment(6).name(), "Line37");
}

TEST(PowerNeedle, KeepsItsTipInItsWellUpToAFigureOf100) {
    RackBench bench;
    bench.start();
    const display::Panel& dial = bench.formB.PowerDial;
    const display::Panel& well = bench.formB.PowerWell;
    for (int figure = 0; figure <= 100; ++figure) {
        bench.formB.DibujoPotencia(115 - figure);
        const float x = dial.left + bench.formB.LinePo.x2 * dial.unit;
        const float y = dial.top + bench.formB.LinePo.y2 * dial.unit;
        EXPECT_GT(x, 100) << figure;
        EXPECT_LT(x, well.width - 100) << figure;
        EXPECT_GT(y, 100) << figure;
        // Enough of the needle is visible.
        EXPECT_LT(y, well.height - 40) << figure;
    }
}

TEST(PowerNeedle, PointsAtTheNumberOfItsFigure) {
    RackBench bench;
    bench.start();
    Form_B& panel = bench.formB;
    for (std::size_t i = 0; i < panel.PowerNumber.size(); ++i) {
        display::Label& number = panel.PowerNumber[i];
        panel.DibujoPotencia(115 - valueOf(number.caption.get()));
        const float x = number.left + number.width / 2;
        const float y = number.top + number.height / 2;
        // Pivot, tip and number lie on one line.
        const float across = (panel.LinePo.x2 - panel.LinePo.x1) * (y - panel.LinePo.y1) -
                             (panel.LinePo.y2 - panel.LinePo.y1) * (x - panel.LinePo.x1);
        EXPECT_NEAR(across / 1865, 0, 1) << number.caption.get();
    }
    EXPECT_EQ(panel.PowerNumber[5].caption, "100");
}

}  // namespace
}  // namespace hmonitor::test
