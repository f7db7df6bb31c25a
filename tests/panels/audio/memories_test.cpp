// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/panels/audio/shown_digit.h"
#include "tests/panels/audio/tunings.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr display::Colour kLitMemory{0x2f2fff};
constexpr display::Colour kDarkMemory{0x1d1c20};

/// A rack with memories 1, 3 and 16.
class Memories : public testing::Test {
 protected:
    void start() {
        bench.start();
        bench.takeCalls();
    }
    void startOn(const char* preset) {
        bench.write("hm-16.dat", lines({preset, "0", "0", "1", "0", "0", "0", "0"}));
        start();
    }
    void next() { bench.click(bench.formB.SSCommand1); }
    void previous() { bench.click(bench.formB.SSCommand2); }
    void moveBar(int value) { bench.set(bench.formB.HScroll1, value); }
    std::vector<std::string> tunings() { return tuningsOf(bench); }
    std::string digits() {
        EXPECT_EQ(bench.formB.Line45.colour.get(), bench.formB.Line46.colour.get());
        return (bench.formB.Line46.colour == kLitMemory ? "1" : "") +
               shownFigure(bench.formB.memoryUnits, kLitMemory, kDarkMemory);
    }

    RackBench bench;
};

TEST_F(Memories, StartSelectsTheStoredPresetWithoutStepping) {
    startOn("3");
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_EQ(digits(), "3");
    EXPECT_EQ(bench.formB.Label_MemoryNumber.caption, "3");
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "102.55");
}

TEST_F(Memories, NextSkipsEmptySlotsAndTunesOnceMoreForEach) {
    start();
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_EQ(bench.state.MemoryNumber, "3");
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "R. TRES  ");
    EXPECT_EQ(bench.state.RadioName, "R. TRES  ");
    EXPECT_THAT(tunings(), ElementsAre("1025.5", "1025.5"));
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 16);
    const auto tuned = tunings();
    EXPECT_THAT(tuned, SizeIs(13));
    EXPECT_THAT(tuned, Each("875"));
    EXPECT_EQ(digits(), "16");
}

TEST_F(Memories, NextWrapsFrom16To1) {
    startOn("16");
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 1);
    EXPECT_THAT(tunings(), ElementsAre("981"));
    EXPECT_EQ(digits(), "1");
}

TEST_F(Memories, PreviousWrapsFrom1To16AndSkips) {
    start();
    previous();
    EXPECT_EQ(bench.formB.MemoryNumber, 16);
    EXPECT_EQ(bench.state.MemoryNumber, "16");
    EXPECT_THAT(tunings(), ElementsAre("875"));
    previous();
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_THAT(tunings(), SizeIs(13));
    previous();
    EXPECT_EQ(bench.formB.MemoryNumber, 1);
    EXPECT_THAT(tunings(), ElementsAre("981", "981"));
}

TEST_F(Memories, StepPastAnEmptySixteenWrapsOn) {
    bench.write("halden.dat", memoryBlock({{2, "DOS", "900"}, {15, "QUINCE", "1000"}}));
    startOn("15");
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 2);
    EXPECT_THAT(tunings(), ElementsAre("900", "900", "900"));
    previous();
    EXPECT_EQ(bench.formB.MemoryNumber, 15);
    EXPECT_THAT(tunings(), ElementsAre("1000", "1000", "1000"));
}

TEST_F(Memories, AnEmptyStoredPresetStartsOnTheNextOne) {
    startOn("2");
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_EQ(bench.formB.PanelStarted, 1);
}

TEST_F(Memories, OneMemoryAloneIsFoundAgainAfterARound) {
    bench.write("halden.dat", memoryBlock({{5, "CINCO", "1000"}}));
    startOn("5");
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 5);
    EXPECT_THAT(tunings(), SizeIs(16));
}

TEST_F(Memories, AllEmptyEndsWhereItBeganAndTunesWhereTheBarStands) {
    start();
    moveBar(40);
    bench.takeCalls();
    bench.write("halden.dat", memoryBlock({}));
    bench.formB.MemoryState = "";
    for (display::Key* key : {&bench.formB.SSCommand1, &bench.formB.SSCommand2}) {
        bench.click(*key);
        EXPECT_EQ(bench.formB.MemoryNumber, 1);
        EXPECT_EQ(bench.state.MemoryNumber, "1");
        EXPECT_THAT(tunings(), ElementsAre("915"));
        EXPECT_EQ(bench.formB.MemoryState, "cero");
        EXPECT_EQ(bench.formB.OffMemory, 1);
        EXPECT_EQ(bench.formB.Label_RadioName.caption, "");
        EXPECT_EQ(digits(), "");
        bench.formB.MemoryState = "";
    }
}

TEST_F(Memories, AllEmptyStartsTheRackOnTheLowestFrequency) {
    bench.write("halden.dat", memoryBlock({}));
    bench.start();
    EXPECT_EQ(bench.formB.PanelStarted, 1);
    EXPECT_EQ(bench.formB.OffMemory, 1);
    EXPECT_EQ(tunings().back(), "875");
    EXPECT_TRUE(bench.formB.Timer2.enabled);
    EXPECT_FALSE(bench.forms.form3.loaded());
}

TEST_F(Memories, FirstPressAfterAManualTuningReloadsTheMemory) {
    startOn("3");
    moveBar(10);
    EXPECT_EQ(digits(), "");
    bench.takeCalls();
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_EQ(digits(), "3");
    EXPECT_EQ(bench.formB.OffMemory, 0);
    EXPECT_THAT(tunings(), ElementsAre("1025.5"));
    moveBar(10);
    bench.takeCalls();
    previous();
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_THAT(tunings(), ElementsAre("1025.5"));
    previous();
    EXPECT_EQ(bench.formB.MemoryNumber, 1);
}

TEST_F(Memories, AMemoryBelowZeroCountsAsZero) {
    start();
    bench.formB.MemoryNumber = -4;
    next();
    EXPECT_EQ(bench.formB.MemoryNumber, 1);
    EXPECT_EQ(bench.state.MemoryNumber, "1");
}

TEST_F(Memories, LowestFrequencyStartsTheRack) {
    startOn("16");
    EXPECT_EQ(bench.formB.PanelStarted, 1);
    EXPECT_EQ(bench.formB.HScroll1.value, 0);
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "87.50");
    EXPECT_TRUE(bench.formB.Timer2.enabled);
    EXPECT_FALSE(bench.forms.form3.loaded());
    EXPECT_EQ(digits(), "16");
}

TEST_F(Memories, Stored8755IsTheHalfStep8755AndStartsTheRackToo) {
    bench.write("halden.dat", memoryBlock({{1, "HALF", "8755"}}));
    bench.start();
    EXPECT_EQ(tunings().back(), "875.5");
    EXPECT_EQ(bench.formB.PanelStarted, 1);
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "87.55");
    EXPECT_EQ(bench.state.HalfStep, "5");
    EXPECT_EQ(bench.state.MemoryFreq, "875.5");
    EXPECT_EQ(bench.state.CurrentFreq, "875.5");
}

TEST_F(Memories, HalfStepIsLeftWithAWholeFrequency) {
    startOn("3");
    EXPECT_EQ(bench.formB.HScroll1.value, 150);
    EXPECT_EQ(bench.formB.TunedFreq, 1025.5);
    EXPECT_EQ(bench.state.MemoryFreq, "1025.5");
    EXPECT_EQ(bench.state.StationName, "R. TRES  ");
    previous();
    EXPECT_EQ(bench.state.HalfStep, "0");
    EXPECT_EQ(bench.state.MemoryFreq, "981");
    EXPECT_EQ(bench.formB.TunedFreq, 981);
}

TEST_F(Memories, AStoredFrequencyBeyondTheBarIsTunedAtItsEnd) {
    bench.write("halden.dat", memoryBlock({{1, "FAR", "5000"}}));
    bench.start();
    EXPECT_EQ(bench.formB.HScroll1.value, 206);
    EXPECT_EQ(tunings().back(), "1081");
}

TEST_F(Memories, EditorsMemoryIsTakenAndTuned) {
    start();
    moveBar(3);
    bench.takeCalls();
    bench.state.MemoryNumber = "16";
    bench.formB.MemoryState = "";
    bench.formB.Command11();
    EXPECT_EQ(bench.formB.MemoryNumber, 16);
    EXPECT_EQ(bench.formB.OffMemory, 0);
    EXPECT_EQ(digits(), "16");
    EXPECT_THAT(tunings(), ElementsAre("875"));
}

TEST_F(Memories, MissingPresetsAreOneMessageAndTheEnd) {
    start();
    bench.remove("halden.dat");
    bench.desktop.boxAnswers = {"ok"};
    next();
    EXPECT_TRUE(bench.desktop.ended());
    EXPECT_THAT(tunings(), IsEmpty());
}

/// When the user moves the bar, name and number of the memory tuned before go.
class HandOnTheBar : public Memories {
 protected:
    void expectOffMemory() {
        moveBar(50);
        EXPECT_EQ(bench.formB.Label_RadioName.caption, "");
        EXPECT_EQ(digits(), "");
        EXPECT_EQ(bench.formB.MemoryState, "cero");
        EXPECT_EQ(bench.formB.OffMemory, 1);
    }
};

TEST_F(HandOnTheBar, AfterAStepOverAnEmptySlotTakesNameAndNumberAway) {
    start();
    next();  // memory 2 is empty: 3 is tuned twice, the second time by the bar's position
    ASSERT_EQ(bench.formB.Label_RadioName.caption, "R. TRES  ");
    expectOffMemory();
}

TEST_F(HandOnTheBar, AfterTheTunedMemoryWasChosenInTheEditorTakesNameAndNumberAway) {
    start();
    bench.click(bench.formB.Image3);
    bench.click(bench.forms.formSetMemories.presets[1]);
    bench.click(bench.forms.formSetMemories.SSCommand17);
    ASSERT_EQ(bench.formB.Label_RadioName.caption, "RADIO UNO");
    expectOffMemory();
}

TEST_F(HandOnTheBar, AfterTheTunedMemoryWasSavedAnewTakesNameAndNumberAway) {
    start();
    bench.click(bench.formB.Image3);
    bench.edit(bench.forms.formSetMemories.Text2, "OTRO");
    bench.click(bench.forms.formSetMemories.SSCommand20);
    bench.click(bench.forms.formSetMemories.SSCommand17);
    ASSERT_EQ(bench.formB.Label_RadioName.caption, "OTRO     ");
    expectOffMemory();
}

TEST_F(HandOnTheBar, AfterAHalfStepBesideTheLastMemoryTakesNameAndNumberAway) {
    bench.write("halden.dat", memoryBlock({{1, "UNO", "981"}, {2, "DOS", "9815"}}));
    start();
    next();
    ASSERT_EQ(bench.formB.Label_FrecRadio.caption, "98.15");
    ASSERT_EQ(digits(), "2");
    expectOffMemory();
}

TEST_F(HandOnTheBar, IsNoHandWhenAStepMovesTheBarAfterwards) {
    start();
    bench.click(bench.formB.Image3);
    bench.click(bench.forms.formSetMemories.presets[1]);
    bench.click(bench.forms.formSetMemories.SSCommand17);
    next();
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "R. TRES  ");
    EXPECT_EQ(digits(), "3");
}

}  // namespace
}  // namespace hmonitor::test
