// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/numbers.h"
#include "program/unit_generation.h"
#include "tests/program/program_bench.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class TunerTest : public testing::Test {
 protected:
    /// Does the first tuning.
    void start() {
        bench.tuner.ManualTune = 0;
        bench.tuner.tuneByBar();
        bench.take();
    }
    ProgramBench bench;
    Tuner& tuner = bench.tuner;
    hmonitor::StationState& state = bench.program.StationState;
};

TEST_F(TunerTest, RetuningAsksInTheOrderOfItsSteps) {
    start();
    tuner.retune();
    EXPECT_THAT(bench.take(),
                ElementsAre("clocks stand", "driver HM_Parar", "driver HM_Normal(981, 0, 0, 0, 0)",
                            "clocks run", "show tuned", "show figures"));
    EXPECT_EQ(state.CurrentFreq, "981");
    EXPECT_EQ(state.ModSettle, "0");
    EXPECT_GE(valueOf(state.TuneTag), 1);
    EXPECT_LE(valueOf(state.TuneTag), 9999);
}

TEST_F(TunerTest, TheFirstMoveOfTheBarStartsTheRackAndOpensTheGate) {
    tuner.ManualTune = 0;
    EXPECT_FALSE(bench.desktop.queue().gateOpen());
    tuner.tuneByBar();
    EXPECT_THAT(bench.take(), ElementsAre("first tuning", "clocks stand", "driver HM_Parar",
                                          "driver HM_Normal(981, 0, 0, 0, 0)", "clocks run",
                                          "show tuned", "show figures", "rack stands"));
    EXPECT_EQ(tuner.PanelStarted, 1);
    EXPECT_TRUE(bench.desktop.queue().gateOpen());
    // It is announced only once.
    tuner.ManualTune = 0;
    tuner.tuneByBar();
    EXPECT_THAT(bench.take(), Not(Contains("rack stands")));
}

TEST_F(TunerTest, AStartFallsBackToLeftAndRight) {
    bench.scratch.write("hm-16.dat", lines({"1", "0", "0", "1", "1", "1", "1", "0"}));
    tuner.tuneByBar();
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 1, 0, 0, 1)"));
    EXPECT_EQ(bench.scratch.read("hm-16.dat"), lines({"1", "0", "0", "1", "1", "1", "0", "0"}));
    // The next tuning reads the stored mode.
    tuner.storeMode(AudioMode::SumDifference);
    tuner.retune();
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 1, 1, 0, 1)"));
}

TEST_F(TunerTest, AHandOnTheBarLeavesTheMemoryAndCancelsAnArmedResponse) {
    start();
    bench.scratch.write("Hm-res.dat", lines({"1", "0.5", "9"}));
    state.ResponseAuto = "si";
    tuner.tuneByBar();
    EXPECT_THAT(bench.take(), ElementsAre("response off", "leave memory", "clocks stand",
                                          "driver HM_Parar", "driver HM_Normal(981, 0, 0, 0, 0)",
                                          "clocks run", "show tuned", "show figures"));
    EXPECT_EQ(state.ResponseState, "no");
    EXPECT_EQ(state.ResponseAuto, "");
    EXPECT_EQ(bench.scratch.read("Hm-res.dat"), lines({"0", "0", "0"}));
}

TEST_F(TunerTest, TheFirstMoveArmsTheResponseThatIsSwitchedOn) {
    bench.scratch.write("Hm-res.dat", lines({"1", "0.5", "9"}));
    tuner.tuneByBar();
    const auto journal = bench.take();
    EXPECT_THAT(journal, Contains("response armed"));
    EXPECT_THAT(journal, Contains("driver HM_Normal(981, 0, 0, 1, 0)"));
    EXPECT_EQ(state.ResponseState, "si");
    // The next tuning keeps it.
    tuner.retune();
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(981, 0, 0, 1, 0)"));
}

TEST_F(TunerTest, AMemoryKeyKeepsItsPanelDisabledWhileTheUnitRetunes) {
    start();
    tuner.ButtonTune = "1";
    tuner.retune();
    EXPECT_THAT(bench.take(), ElementsAre("clocks stand", "panel disabled", "driver HM_Parar",
                                          "driver HM_Normal(981, 0, 0, 0, 0)", "panel enabled",
                                          "clocks run", "show tuned", "show figures"));
    EXPECT_EQ(tuner.ButtonTune, "0");
}

TEST_F(TunerTest, InDemoModeAllStepsRunButTheDriversCalls) {
    start();
    state.DemoMode = "si";
    tuner.retune();
    EXPECT_THAT(bench.take(),
                ElementsAre("clocks stand", "clocks run", "show tuned", "show figures"));
}

TEST_F(TunerTest, TheHalfStepIsPartOfTheFrequencyAndOfTheFilesName) {
    start();
    bench.panels.barValue = 150;
    state.HalfStep = "5";
    std::vector<std::string> results(17, "");
    for (const char* line : {"50", "51", "30.5", "31", "0.4"}) results.emplace_back(line);
    bench.scratch.write("1025.5.dat", lines(results));
    tuner.retune();
    EXPECT_EQ(tuner.TunedFreq, 1025.5);
    EXPECT_THAT(bench.take(), Contains("driver HM_Normal(1025.5, 0, 0, 0, 0)"));
    EXPECT_EQ(state.FloorNoiseL, "50");
    EXPECT_EQ(state.FloorSepL, "30");
    EXPECT_EQ(state.FloorThd, "40");
    state.HalfStep = "0";
    tuner.retune();
    EXPECT_EQ(state.FloorNoiseL, "xx");
}

TEST(UnitGeneration, GivesFramesFrom17UpTo2) {
    for (const float version : {1.7f, 1.8f, 1.99f}) EXPECT_TRUE(givesFrames(version)) << version;
    for (const float version : {0.f, 1.f, 1.69f, 2.f, 2.1f, -1.8f})
        EXPECT_FALSE(givesFrames(version)) << version;
}

}  // namespace
}  // namespace hmonitor::test
