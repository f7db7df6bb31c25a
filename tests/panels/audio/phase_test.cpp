// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <cmath>

#include "tests/panels/audio/shown_digit.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

constexpr display::Colour kLitPhase{0x2f2fff};
constexpr display::Colour kDarkPhase{0x000000};

TEST(PhaseHold, HoldsAPeakFor51ReadingsAndFollowsDownInOneStep) {
    PhaseHold hold;
    EXPECT_EQ(hold.take(45), 45);
    for (int i = 0; i < 50; ++i) EXPECT_EQ(hold.take(10), 45) << i;
    EXPECT_EQ(hold.take(10), 10);
    EXPECT_EQ(hold.take(11), 11);
}

TEST(PhaseHold, AHigherReadingStartsTheHoldAnew) {
    PhaseHold hold;
    hold.take(45);
    for (int i = 0; i < 50; ++i) hold.take(10);
    EXPECT_EQ(hold.take(46), 46);
    for (int i = 0; i < 50; ++i) EXPECT_EQ(hold.take(46), 46) << i;
    EXPECT_EQ(hold.PhaseHoldTicks, 50);
    EXPECT_EQ(hold.take(3), 3);
}

TEST(PhaseTrail, IsDueEveryThirdReading) {
    PhaseTrail trail;
    for (int round = 0; round < 3; ++round) {
        EXPECT_FALSE(trail.due());
        EXPECT_FALSE(trail.due());
        EXPECT_TRUE(trail.due());
    }
}

TEST(PhaseTrail, ShiftsTheNewestInFront) {
    PhaseTrail trail;
    for (int i = 1; i <= 6; ++i) trail.shift(static_cast<float>(i));
    EXPECT_EQ(trail.trail, (std::array<float, 5>{6, 5, 4, 3, 2}));
}

class Phase : public testing::Test {
 protected:
    void SetUp() override { bench.start(); }
    void beat(float phase) {
        bench.readings.stereoPhase = phase;
        bench.beat();
    }
    void expectNeedle(const display::Line& needle, double phase) {
        const double angle = (90 - 2 * phase) * 3.14159265358979323846 / 180;
        EXPECT_EQ(needle.x1, 1320);
        EXPECT_EQ(needle.y1, 1080);
        EXPECT_NEAR(needle.x2, 1320 + 840 * std::sin(angle), 0.01) << phase;
        EXPECT_NEAR(needle.y2, 1080 - 840 * std::cos(angle), 0.01) << phase;
    }
    std::string digits() {
        return (bench.formB.Line120.colour == kLitPhase ? "1" : "") +
               shownFigure(bench.formB.phaseTens, kLitPhase, kDarkPhase) +
               shownFigure(bench.formB.phaseUnits, kLitPhase, kDarkPhase);
    }

    RackBench bench;
};

TEST_F(Phase, NeedleLiesRightAtZeroUpAt45AndLeftAt90) {
    beat(0);
    EXPECT_NEAR(bench.formB.Line1.x2, 2160, 0.01);
    EXPECT_NEAR(bench.formB.Line1.y2, 1080, 0.01);
    beat(45);
    EXPECT_NEAR(bench.formB.Line1.x2, 1320, 0.01);
    EXPECT_NEAR(bench.formB.Line1.y2, 240, 0.01);
    beat(90);
    EXPECT_NEAR(bench.formB.Line1.x2, 480, 0.01);
    EXPECT_NEAR(bench.formB.Line1.y2, 1080, 0.01);
}

TEST_F(Phase, TrailIsDrawnEveryThirdBeatBeforeItShifts) {
    beat(10);
    beat(20);
    expectNeedle(bench.formB.Line1, 20);
    expectNeedle(bench.formB.Line2, 45);  // its place in the layout
    beat(30);
    expectNeedle(bench.formB.Line1, 30);
    expectNeedle(bench.formB.Line2, 0);
    beat(40);
    beat(50);
    expectNeedle(bench.formB.Line2, 0);
    beat(60);
    expectNeedle(bench.formB.Line1, 60);
    expectNeedle(bench.formB.Line2, 30);
    expectNeedle(bench.formB.Line3, 0);
    for (const float phase : {70.f, 75.f, 80.f, 1.f, 2.f, 3.f, 4.f, 5.f, 6.f, 7.f, 8.f, 9.f}) {
        beat(phase);
    }
    expectNeedle(bench.formB.Line1, 9);
    expectNeedle(bench.formB.Line2, 6);
    expectNeedle(bench.formB.Line3, 3);
    expectNeedle(bench.formB.Line4, 80);
    expectNeedle(bench.formB.Line5, 60);
    expectNeedle(bench.formB.Line6, 30);
}

TEST_F(Phase, NeedleAndTrailKeepTheirColoursAndWidths) {
    auto& form = bench.formB;
    beat(20);
    const display::Line* const lines[] = {&form.Line1, &form.Line2, &form.Line3,
                                          &form.Line4, &form.Line5, &form.Line6};
    const std::uint32_t colours[] = {0x0000ff, 0x0000c0, 0x02069d, 0x01047c, 0x010356, 0x000040};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(lines[i]->colour, display::Colour{colours[i]}) << i;
        EXPECT_EQ(lines[i]->thickness, i == 0 ? 3 : 2) << i;
    }
}

TEST_F(Phase, LabelHasTwoFiguresBeforeAndAfterThePoint) {
    beat(7.25f);
    EXPECT_EQ(bench.formB.Label_PhaseVector.caption, "07.25");
    EXPECT_EQ(digits(), "7");
    beat(43.999f);
    EXPECT_EQ(bench.formB.Label_PhaseVector.caption, "44.00");
    EXPECT_EQ(digits(), "43");
}

TEST_F(Phase, NinetyFiveIsClampedForTheNeedleAlone) {
    beat(95);
    expectNeedle(bench.formB.Line1, 90);
    EXPECT_EQ(bench.formB.Label_PhaseVector.caption, "95.00");
    EXPECT_EQ(digits(), "95");
}

TEST_F(Phase, HundredLightsTheHundreds) {
    beat(99);
    EXPECT_EQ(digits(), "99");
    EXPECT_EQ(bench.formB.Line121.colour, kDarkPhase);
    beat(100);
    EXPECT_EQ(digits(), "100");
    EXPECT_EQ(bench.formB.Line121.colour, kLitPhase);
    EXPECT_EQ(bench.formB.Label_PhaseVector.caption, "100.00");
    beat(127);
    EXPECT_EQ(digits(), "127");
}

TEST_F(Phase, NegativeShowsOnTheLabelAndItsSignCountsAsZero) {
    beat(-5.5f);
    expectNeedle(bench.formB.Line1, 0);
    EXPECT_EQ(bench.formB.Label_PhaseVector.caption, "-05.50");
    EXPECT_EQ(digits(), "0");
    bench.beat(60);
    EXPECT_EQ(bench.formB.phaseHold.PhaseShown, -6);
    EXPECT_EQ(digits(), "0");
}

TEST_F(Phase, DigitsHoldAPeakWhileTheNeedleFollows) {
    beat(63);
    beat(12);
    expectNeedle(bench.formB.Line1, 12);
    EXPECT_EQ(digits(), "63");
    bench.beat(49);
    EXPECT_EQ(digits(), "63");
    bench.beat();
    EXPECT_EQ(digits(), "12");
}

TEST_F(Phase, BelowTenTheTensGoDark) {
    beat(58);
    beat(3);
    bench.beat(50);
    EXPECT_EQ(digits(), "3");
    EXPECT_EQ(litSegments(bench.formB.phaseTens, kLitPhase, kDarkPhase), "");
}

}  // namespace
}  // namespace hmonitor::test
