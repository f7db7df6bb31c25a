// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <cmath>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::IsEmpty;

TEST(Loop, ReadsTheUnitEvery30Milliseconds) {
    RackBench bench;
    bench.start();
    bench.driver.dataCalls = 0;
    bench.advance(std::chrono::milliseconds(29));
    EXPECT_EQ(bench.driver.dataCalls, 0);
    bench.advance(std::chrono::milliseconds(1));
    // The multipath meter makes the second reading.
    EXPECT_EQ(bench.driver.dataCalls, 2);
    bench.beat(2);
    EXPECT_EQ(bench.driver.dataCalls, 6);
}

TEST(Loop, HandsTheWholePartOfTheModulationOn) {
    RackBench bench;
    bench.start();
    bench.beat();  // the first one after a tuning resets the held peak
    bench.readings.peakModulation = 93.9f;
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 93);
    EXPECT_EQ(bench.state.ModBar, 93);
    bench.readings.peakModulation = 40;
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 40);
    EXPECT_EQ(bench.state.ModBar, 93) << "a lower peak leaves the bar";
}

TEST(Loop, ModulationAbove160Is160) {
    RackBench bench;
    bench.start();
    bench.beat();  // the first one after a tuning resets the held peak
    bench.readings.peakModulation = 161;
    bench.beat();
    EXPECT_EQ(bench.state.DemoPeak, 160);
    EXPECT_EQ(bench.state.ModBar, 160);
}

TEST(Loop, AHigherPeakStartsTheFallOfTheModulationBar) {
    RackBench bench;
    bench.start();
    bench.beat();  // the first one after a tuning resets the held peak
    bench.readings.peakModulation = 80;
    bench.beat();
    bench.form1.Timer1.enabled = false;
    bench.readings.peakModulation = 79;
    bench.beat();
    EXPECT_FALSE(bench.form1.Timer1.enabled);
    bench.readings.peakModulation = 81;
    bench.beat();
    EXPECT_TRUE(bench.form1.Timer1.enabled);
}

class DemoLoop : public testing::Test {
 protected:
    void SetUp() override {
        bench.driver.hardwareVersion = 0;
        bench.desktop.modalScripts["FormModoDemo"] = [this](display::Form&) {
            bench.hand.click(bench.forms.formModoDemo.Command1);
        };
        bench.start();
        bench.takeCalls();
    }
    RackBench bench;
};

TEST_F(DemoLoop, DrawsLeftRightModulationAndPhase) {
    const double modBar = bench.state.ModBar;
    bench.desktop.randoms = {0.99, 0.75, 0.5, 0.25};
    bench.beat();
    EXPECT_THAT(bench.desktop.randoms, IsEmpty());
    EXPECT_EQ(bench.formB.WindowMaxL.windowMax, 31);  // (23.76 + 0 + 40) / 2
    EXPECT_EQ(bench.formB.WindowMaxR.windowMax, 29);  // (18 + 0 + 40) / 2
    EXPECT_EQ(bench.state.DemoPeak, std::floor((30 + modBar + 50) / 2));
    EXPECT_EQ(bench.formB.PhaseNow, 13.5f);  // (22 + 0 + 5) / 2
    EXPECT_EQ(bench.formB.Label_PhaseVector.caption, "13.50");
}

TEST_F(DemoLoop, FollowsItsOwnLastFigures) {
    bench.desktop.randoms = {0, 0, 0, 0.5};
    bench.beat();
    EXPECT_EQ(bench.formB.WindowMaxL.windowMax, 20);
    EXPECT_EQ(bench.formB.PhaseNow, 25);
    bench.desktop.randoms = {0.5, 0, 0, 0.999};
    bench.beat(2);
    EXPECT_THAT(bench.desktop.randoms, IsEmpty());
    EXPECT_EQ(bench.formB.WindowMaxL.windowMax, 36);  // (12 + 20 + 40) / 2
    EXPECT_EQ(bench.formB.PhaseNow, 59.5f);           // (89 + 25 + 5) / 2
}

TEST_F(DemoLoop, EveryOtherBeatReadsTheUnitAndDoesNothingElse) {
    bench.beat();
    EXPECT_EQ(bench.formB.WindowTicks, 1);
    bench.desktop.randoms = {0.5, 0.5, 0.5, 0.5};
    bench.driver.dataCalls = 0;
    bench.beat();
    EXPECT_EQ(bench.driver.dataCalls, 1);
    EXPECT_EQ(bench.formB.WindowTicks, 1);
    EXPECT_EQ(bench.desktop.randoms.size(), 4u);
    bench.beat();
    EXPECT_EQ(bench.formB.WindowTicks, 2);
}

TEST_F(DemoLoop, WhatTheDriverSaysDoesNotCount) {
    bench.readings.peakModulation = 155;
    bench.readings.stereoPhase = 88;
    bench.desktop.randoms = {0, 0, 0, 0};
    bench.beat();
    EXPECT_LT(bench.state.DemoPeak, 100);
    EXPECT_EQ(bench.formB.PhaseNow, 2.5f);
}

TEST_F(DemoLoop, TunesWithoutTheUnit) {
    bench.write("0925.dat", lines(std::vector<std::string>(24, "7")));
    bench.formB.ButtonTune = "0";
    bench.set(bench.formB.HScroll1, 50);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "92.50");
    EXPECT_EQ(bench.state.CurrentFreq, "925");
    EXPECT_EQ(bench.state.FloorNoiseL, "7");
    EXPECT_EQ(bench.formB.OffMemory, 1);
    EXPECT_TRUE(bench.formB.Timer2.enabled);
    bench.click(bench.formB.SSCommand1);
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "98.10");
}

}  // namespace
}  // namespace hmonitor::test
