// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Modes : public testing::Test {
 protected:
    void start() {
        bench.write("hm-16.dat", lines({"1", "-3.5", "0", "1", "1", "0", "0", "-7.5"}));
        bench.start();
        bench.takeCalls();
    }
    RackBench bench;
};

TEST_F(Modes, KeysComeUpOnTheStoredMode) {
    start();
    EXPECT_EQ(bench.formB.Image1.picture, "LyRA");
    EXPECT_EQ(bench.formB.Image2.picture, "LRN");
    EXPECT_EQ(bench.formB.Image3.picture, "SetN");
    EXPECT_EQ(bench.formB.Image4.picture, "RemoteN");
}

TEST_F(Modes, SumAndDifferenceIsStoredAndTuned) {
    start();
    bench.press(bench.formB.Image2);
    EXPECT_EQ(bench.formB.Image2.picture, "LRA");
    EXPECT_EQ(bench.formB.Image1.picture, "LyRN");
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", "HM_Normal(981, 0, 1, 0, 1)"));
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "-3.5", "0", "1", "1", "0", "1", "-7.5"}));
}

TEST_F(Modes, LeftAndRightIsStoredAndTuned) {
    start();
    bench.press(bench.formB.Image2);
    bench.takeCalls();
    bench.press(bench.formB.Image1);
    EXPECT_EQ(bench.formB.Image1.picture, "LyRA");
    EXPECT_EQ(bench.formB.Image2.picture, "LRN");
    EXPECT_THAT(bench.takeCalls(),
                ElementsAre("HM_Parar", "HM_Parar", "HM_Normal(981, 0, 0, 0, 1)"));
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "-3.5", "0", "1", "1", "0", "0", "-7.5"}));
}

TEST_F(Modes, ModeKeysStayOnTheMemory) {
    start();
    bench.press(bench.formB.Image2);
    EXPECT_EQ(bench.formB.OffMemory, 0);
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "RADIO UNO");
}

TEST_F(Modes, EveryStartFallsBackToLeftAndRight) {
    bench.write("hm-16.dat", lines({"1", "2", "0", "1", "0", "1", "1", "5"}));
    bench.start();
    EXPECT_THAT(bench.takeCalls(), testing::Contains("HM_Normal(981, 1, 0, 0, 0)"));
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "2", "0", "1", "0", "1", "0", "5"}));
}

TEST_F(Modes, AModeChosenLaterStaysThroughTunings) {
    start();
    bench.press(bench.formB.Image2);
    bench.takeCalls();
    bench.set(bench.formB.HScroll1, 50);
    EXPECT_THAT(bench.takeCalls(), ElementsAre("HM_Parar", "HM_Normal(925, 0, 1, 0, 1)"));
}

TEST_F(Modes, EditorOpensAtReleaseAndDisablesTheRack) {
    start();
    bench.press(bench.formB.Image3);
    EXPECT_EQ(bench.formB.Image3.picture, "SetA");
    EXPECT_FALSE(bench.program.Form_bSetMemories->visible);
    EXPECT_TRUE(bench.formB.enabled);
    bench.release(bench.formB.Image3);
    EXPECT_EQ(bench.formB.Image3.picture, "SetN");
    EXPECT_TRUE(bench.program.Form_bSetMemories->visible);
    EXPECT_FALSE(bench.form1.enabled);
    EXPECT_FALSE(bench.formB.enabled);
    EXPECT_FALSE(bench.formC.enabled);
    EXPECT_FALSE(bench.formD.enabled);
    EXPECT_EQ(bench.state.MemoryEditFreq, "981");
    EXPECT_EQ(bench.forms.formSetMemories.SelectedMemory, "1") << "the memory number";
    EXPECT_EQ(bench.state.MemoryEdit, "0");
}

TEST_F(Modes, EditorOffAMemoryIsToldSo) {
    start();
    bench.set(bench.formB.HScroll1, 5);
    EXPECT_EQ(bench.formB.MemoryState, "cero");
    bench.press(bench.formB.Image3);
    bench.release(bench.formB.Image3);
    EXPECT_EQ(bench.state.MemoryEdit, "1");
    EXPECT_EQ(bench.state.MemoryEditFreq, "880");
    EXPECT_EQ(bench.formB.MemoryState, "");
}

TEST_F(Modes, KeypadOpensAtReleaseAndDisablesTheRack) {
    start();
    bench.press(bench.formB.Image4);
    EXPECT_EQ(bench.formB.Image4.picture, "RemoteA");
    bench.release(bench.formB.Image4);
    EXPECT_EQ(bench.formB.Image4.picture, "RemoteN");
    EXPECT_TRUE(bench.program.Form_bTuner->visible);
    EXPECT_FALSE(bench.form1.enabled);
    EXPECT_FALSE(bench.formB.enabled);
    EXPECT_FALSE(bench.formC.enabled);
    EXPECT_FALSE(bench.formD.enabled);
}

TEST_F(Modes, AMissingSettingsFileEndsTheProgramBeforeTheUnitIsStopped) {
    start();
    bench.remove("hm-16.dat");
    bench.desktop.boxAnswers = {"ok"};
    bench.press(bench.formB.Image2);
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(bench.takeCalls(), IsEmpty());
}

}  // namespace
}  // namespace hmonitor::test
