// SPDX-License-Identifier: GPL-3.0-or-later
// The row of digits on the rack tunes the memories.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "tests/panels/audio/tunings.h"
#include "tuner/form_b_tuner.h"

namespace hmonitor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A rack whose memory n holds 88.0 MHz and n tenths, but for 4 and 14.
struct MemoryKeys : testing::Test {
    MemoryKeys() {
        std::vector<Memory> memories;
        for (int memory = 1; memory <= 16; ++memory) {
            if (memory == 4 || memory == 14) continue;
            const std::string number = std::to_string(memory);
            memories.push_back({memory, "R " + number, std::to_string(880 + memory)});
        }
        bench.write("halden.dat", memoryBlock(memories));
        bench.start();
        bench.takeCalls();
    }
    void press(int place, bool shift = false) {
        bench.hand.digit(bench.form1, {place, shift});
        bench.settle();
    }
    std::vector<std::string> tunings() { return tuningsOf(bench); }

    RackBench bench;
};

TEST_F(MemoryKeys, OneToNineAndNoughtTuneTheFirstTen) {
    for (int place : {10, 9, 8, 7, 6, 5, 3, 2, 1}) {
        press(place);
        EXPECT_THAT(tunings(), ElementsAre(std::to_string(880 + place)));
        EXPECT_EQ(bench.formB.MemoryNumber, place);
        EXPECT_EQ(bench.state.MemoryNumber, std::to_string(place));
        EXPECT_EQ(bench.formB.Label_MemoryNumber.caption, std::to_string(place));
        EXPECT_TRUE(bench.formB.Label_RadioName.caption.get().starts_with("R "));
    }
}

TEST_F(MemoryKeys, WithShiftOneToSixTuneTheRest) {
    for (int place : {1, 2, 3, 5, 6}) {
        press(place, true);
        EXPECT_THAT(tunings(), ElementsAre(std::to_string(890 + place)));
        EXPECT_EQ(bench.formB.MemoryNumber, 10 + place);
    }
    for (int place : {7, 8, 9, 10}) press(place, true);
    EXPECT_THAT(tunings(), IsEmpty());
    EXPECT_EQ(bench.formB.MemoryNumber, 16);
}

TEST_F(MemoryKeys, AnEmptyMemoryDoesNothing) {
    press(2);
    tunings();
    press(4);
    press(4, true);
    EXPECT_THAT(tunings(), IsEmpty());
    EXPECT_EQ(bench.formB.MemoryNumber, 2);
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "88.20");
}

TEST_F(MemoryKeys, TheKeyOfTheMemoryThatIsTunedTunesItAgain) {
    press(3);
    tunings();
    press(3);
    EXPECT_THAT(tunings(), ElementsAre("883"));
}

TEST_F(MemoryKeys, TheStepsGoOnFromThere) {
    press(5);
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.formB.MemoryNumber, 6);
    press(2, true);
    bench.click(bench.formB.SSCommand2);
    EXPECT_EQ(bench.formB.MemoryNumber, 11);
}

TEST_F(MemoryKeys, ComeBackFromAFrequencyTunedByHand) {
    bench.set(bench.formB.HScroll1, 100);
    ASSERT_EQ(bench.formB.MemoryState, "cero");
    press(7);
    EXPECT_EQ(bench.formB.OffMemory, 0);
    EXPECT_EQ(bench.formB.Label_RadioName.caption, "R 7      ");
    // The next key steps to the next memory and does not just show this one again.
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.formB.MemoryNumber, 8);
    // The next move of the bar counts as the user's.
    bench.set(bench.formB.HScroll1, 101);
    EXPECT_EQ(bench.formB.OffMemory, 1);
}

TEST_F(MemoryKeys, WaitForNothingWhileADialogStands) {
    bench.click(bench.formB.Image4);
    ASSERT_TRUE(bench.program.Form_bTuner->visible);
    press(2);
    EXPECT_THAT(tunings(), IsEmpty());
    bench.click(bench.program.Form_bTuner->SSCommand12);
    EXPECT_THAT(tunings(), IsEmpty());
}

TEST(MemoryKeysAtStart, DoNothingBeforeTheRackStands) {
    RackBench bench;
    bench.showSplash();
    bench.hand.digit(bench.form1, {1, false});
    bench.settle();
    EXPECT_EQ(bench.formB.PanelStarted, 0);
    bench.form1.digitPressed({1, false});
    EXPECT_EQ(bench.formB.PanelStarted, 0);
}

}  // namespace
}  // namespace hmonitor::test
