// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/panels/modulation/demo_start.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* kResponse = "HM_RespFrecuencia";

TEST(Loop, NoReadoutMovesBeforeTheFirstTuning) {
    RackBench bench;
    bool looked = false;
    bench.readings.peakModulation = 80;
    bench.readings.field = 60;
    bench.driver.duringNormal = [&] {
        if (bench.formB.PanelStarted != 0 || !bench.form1.visible) return;
        looked = true;
        bench.desktop.elapse(5s);
        bench.desktop.letEventsThrough();
        EXPECT_EQ(bench.form1.Label_FMod.caption, "");
        EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "");
        EXPECT_EQ(bench.form1.bar.ModBarValue, 0);
        EXPECT_FALSE(bench.form1.Timer1.enabled);
        EXPECT_FALSE(bench.form1.Timer4.enabled);
        EXPECT_FALSE(bench.formB.Timer2.enabled);
        EXPECT_FALSE(bench.formB.Timer3.enabled);
        EXPECT_TRUE(bench.form1.Timer5.enabled);
    };
    bench.start();
    EXPECT_TRUE(looked);
    bench.advance(100ms);
    EXPECT_EQ(bench.form1.Label_FMod.caption, "60.0");
}

TEST(Loop, TimersStandWhileATuningRuns) {
    RackBench bench;
    bench.start();
    bool looked = false;
    bench.driver.duringNormal = [&] {
        looked = true;
        EXPECT_FALSE(bench.form1.Timer1.enabled);
        EXPECT_FALSE(bench.form1.Timer4.enabled);
        EXPECT_FALSE(bench.formB.Timer2.enabled);
        EXPECT_FALSE(bench.formB.Timer3.enabled);
        EXPECT_TRUE(bench.form1.Timer5.enabled);
    };
    bench.formB.cambfre();
    EXPECT_TRUE(looked);
    EXPECT_TRUE(bench.form1.Timer1.enabled);
    EXPECT_TRUE(bench.form1.Timer4.enabled);
    EXPECT_TRUE(bench.formB.Timer2.enabled);
    EXPECT_TRUE(bench.formB.Timer3.enabled);
}

TEST(Loop, TimersHaveTheirPaces) {
    RackBench bench;
    bench.start();
    EXPECT_EQ(std::chrono::milliseconds(bench.formB.Timer2.interval), 30ms);
    EXPECT_EQ(std::chrono::milliseconds(bench.formB.Timer3.interval), 300ms);
    EXPECT_EQ(std::chrono::milliseconds(bench.form1.Timer1.interval), 100ms);
    EXPECT_EQ(std::chrono::milliseconds(bench.form1.Timer4.interval), 100ms);
    EXPECT_EQ(std::chrono::milliseconds(bench.form1.Timer5.interval), 60000ms);
}

TEST(Loop, ModulationIsCutTowardsZero) {
    RackBench bench;
    bench.start();
    bench.readings.peakModulation = 80.9f;
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 80);
    bench.readings.peakModulation = -0.9f;
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 0);
}

TEST(Loop, ModulationIsAtMost160) {
    RackBench bench;
    bench.start();
    bench.readings.peakModulation = 161;
    bench.beat(2);
    EXPECT_EQ(bench.state.DemoPeak, 160);
    EXPECT_EQ(bench.state.ModBar, 160);
    EXPECT_EQ(bench.form1.bar.ModBarValue, 160);
    bench.readings.peakModulation = 160;
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 160);
}

TEST(Loop, ThePeakRisesAtOnceAndFallsByOneInHalfASecond) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.form1.DecayTick = 0;
    bench.readings.peakModulation = 50;
    bench.state.ModBar = 100;
    bench.advance(400ms);
    EXPECT_EQ(bench.state.ModBar, 100);
    bench.advance(100ms);
    EXPECT_EQ(bench.state.ModBar, 99);
    bench.advance(400ms);
    EXPECT_EQ(bench.state.ModBar, 99);
    bench.advance(100ms);
    EXPECT_EQ(bench.state.ModBar, 98);
    bench.readings.peakModulation = 130;
    bench.beat();
    EXPECT_EQ(bench.state.ModBar, 130);
}

TEST(Loop, APeakAboveTheHeldOneSwitchesItsFallOn) {
    RackBench bench;
    bench.start();
    bench.beat();
    bench.form1.Timer1.enabled = false;
    bench.readings.peakModulation = 40;
    bench.beat();
    EXPECT_TRUE(bench.form1.Timer1.enabled);
}

TEST(Loop, TheSlowTickEndsWithTheQualityPanelsLastFigures) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.form1.Timer1.enabled = false;
    bench.formB.Timer2.enabled = false;
    bench.driver.noteData = true;
    bench.takeCalls();
    bench.advance(100ms);
    // Readings for the field, the numbers and the lamp, then for the five figures of the quality
    // panel; only the last one asks for RDS.
    EXPECT_THAT(bench.takeCalls(),
                testing::ElementsAre("HM_Data", "HM_Data", "HM_Data", "HM_Data", "HM_Data",
                                     "HM_Data", "HM_Data", "HM_Data", "HM_DataRDS(0)"));
}

TEST(Loop, TheSlowTickDrawsOneNumberWithAUnit) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.form1.Timer1.enabled = false;
    bench.formB.Timer2.enabled = false;
    bench.formB.Timer3.enabled = false;
    bench.desktop.randoms = {0.5, 0.25};
    bench.advance(100ms);
    EXPECT_EQ(bench.desktop.randoms.size(), 1u);
}

TEST(Loop, RelativePowerIsKeptAsText) {
    RackBench bench;
    bench.readings.relativePower = 3.5f;
    bench.start();
    bench.advance(100ms);
    EXPECT_EQ(bench.state.PowerText, "35");
}

TEST(DemoLoop, RunsAtHalfRateAndFeedsItsPeakBack) {
    RackBench bench;
    startInDemoMode(bench);
    // Left, right, modulation, phase.
    bench.desktop.randoms = {0.1, 0.2, 0.5, 0.4};
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 40);  // (0.5 * 60 + 0 + 50) / 2
    EXPECT_EQ(bench.form1.bar.ModBarValue, 40);
    EXPECT_EQ(bench.state.ModBar, 0) << "after a tuning the held peak starts anew";
    EXPECT_TRUE(bench.desktop.randoms.empty());

    bench.desktop.randoms = {0.1, 0.2, 0.95, 0.4};
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 40);
    EXPECT_EQ(bench.desktop.randoms.size(), 4u) << "every second heartbeat does nothing";
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 53);  // (57 + 0 + 50) / 2 = 53.5
    EXPECT_EQ(bench.state.ModBar, 53);
    EXPECT_TRUE(bench.desktop.randoms.empty());

    // The timer of 120 ms skips this tick; the slow one of 100 ms draws one number.
    bench.desktop.randoms = {0.7, 0.1, 0.2, 0.5, 0.4};
    bench.beat(2);
    EXPECT_EQ(bench.state.DemoPeak, 66);  // (30 + 53 + 50) / 2 = 66.5
    EXPECT_EQ(bench.state.ModBar, 66);
    EXPECT_TRUE(bench.desktop.randoms.empty());
}

TEST(DemoLoop, TheUnitsModulationIsNotLookedAt) {
    RackBench bench;
    bench.readings.peakModulation = 150;
    startInDemoMode(bench);
    bench.desktop.randoms = {0, 0, 0, 0};
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 25);
    bench.advance(70ms);
    EXPECT_NE(bench.form1.Label_FMod_Porcentaje.caption, "150.0");
}

TEST(EndMark, CountsOnlyWhileAResponseIsArmed) {
    for (const char* state : {"0", "no", ""}) {
        RackBench bench;
        bench.start();
        bench.takeCalls();
        bench.state.ResponseState = state;
        bench.readings.pilotError = 11583;
        bench.readings.pilotLevel = 18;
        bench.advance(100ms);
        EXPECT_EQ(std::ranges::count(bench.driver.calls, kResponse), 0) << state;
    }
}

TEST(EndMark, ReadsTheResponseWhenBothWholePartsMatch) {
    struct Case {
        float error;
        float level;
        int reads;
    };
    for (const Case& at : {Case{11583, 18, 1}, Case{11583.9f, 18.9f, 1}, Case{11584, 18, 0},
                           Case{11582.9f, 18, 0}, Case{11583, 19, 0}, Case{11583, 17.9f, 0}}) {
        RackBench bench;
        bench.start();
        bench.takeCalls();
        bench.state.ResponseState = "sisi";
        bench.readings.pilotError = at.error;
        bench.readings.pilotLevel = at.level;
        bench.advance(100ms);
        EXPECT_EQ(std::ranges::count(bench.driver.calls, kResponse), at.reads)
            << at.error << " " << at.level;
    }
}

TEST(OnAirFigures, AHandEditOfTheFileShowsWithinAMinute) {
    RackBench bench;
    bench.start();
    bench.write("normal.hm", lines({"120.9", "b", "c", "d", "1.2345678", "f", "g", "-2.5", "80x"}));
    bench.advance(59999ms);
    EXPECT_EQ(bench.formD.Text2.text, "100");
    bench.advance(1ms);
    EXPECT_EQ(bench.formD.Text1.text, "1.234");
    EXPECT_EQ(bench.formD.Text2.text, "120");
    EXPECT_EQ(bench.formD.Text3.text, "-3");
    EXPECT_EQ(bench.formD.Text4.text, "80");
}

TEST(OnAirFigures, TypedOnesGoBackToTheFilesAtTheMinute) {
    RackBench bench;
    bench.start();
    bench.formD.Text1.text = "9.999";
    bench.formD.Text4.text = "1";
    bench.advance(60s);
    EXPECT_EQ(bench.formD.Text1.text, "1.000");
    EXPECT_EQ(bench.formD.Text4.text, "90");
}

TEST(OnAirFigures, AMissingOrTornFileLeavesThemAtTheMinute) {
    for (const bool torn : {true, false}) {
        RackBench bench;
        bench.start();
        if (torn) {
            bench.write("normal.hm", lines({"55", "0", "0", "0", "2.000", "0", "0", "7"}));
        } else {
            bench.remove("normal.hm");
        }
        bench.formD.Text4.text = "33";
        bench.advance(60s);
        EXPECT_EQ(bench.formD.Text1.text, "1.000");
        EXPECT_EQ(bench.formD.Text2.text, "100");
        EXPECT_EQ(bench.formD.Text3.text, "2");
        EXPECT_EQ(bench.formD.Text4.text, "33");
        EXPECT_FALSE(bench.desktop.ended());
        EXPECT_TRUE(bench.desktop.boxes.empty());
        bench.write("normal.hm", lines({"70", "0", "0", "0", "3.000", "0", "0", "7", "8"}));
        bench.advance(60s);
        EXPECT_EQ(bench.formD.Text2.text, "70");
        EXPECT_EQ(bench.formD.Text4.text, "8");
    }
}

}  // namespace
}  // namespace hmonitor::test
