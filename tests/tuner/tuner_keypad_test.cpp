// SPDX-License-Identifier: GPL-3.0-or-later
#include <set>
#include <string>

#include "core/numbers.h"
#include "tests/tuner/editor_bench.h"
#include "tests/tuner/typed_table.h"
#include "tuner/keypad_entry.h"

namespace hmonitor::test {
namespace {

struct TunerKeypad : testing::Test {
    EditorBench bench;
    Form_bTuner& keypad = bench.keypad;

    void startInKeypad() {
        bench.start();
        bench.openKeypad();
        bench.takeCalls();
    }
    void enter(std::string_view digits) {
        bench.edit(keypad.Text1, digits);
        bench.click(keypad.SSCommand10);
    }
};

TEST_F(TunerKeypad, OpensFromTheRemoteKey) {
    bench.start();
    bench.press(bench.formB.Image4);
    EXPECT_EQ(bench.formB.Image4.picture, "RemoteA");
    EXPECT_FALSE(keypad.visible);
    bench.release(bench.formB.Image4);
    EXPECT_EQ(bench.formB.Image4.picture, "RemoteN");
    EXPECT_TRUE(keypad.visible);
    EXPECT_TRUE(bench.rackDisabled());
    EXPECT_EQ(keypad.Label1.caption, "Remote Control");
    EXPECT_EQ(keypad.Text1.text, "");
}

TEST_F(TunerKeypad, BeginsInItsFieldEachTimeItOpens) {
    startInKeypad();
    EXPECT_EQ(bench.desktop.focus, &keypad.Text1);
    bench.click(keypad.SSCommand12);
    EXPECT_EQ(bench.desktop.focus, nullptr);
    bench.openKeypad();
    EXPECT_EQ(bench.desktop.focus, &keypad.Text1);
}

TEST_F(TunerKeypad, AClickOnAnyKeyButCloseLeavesTheKeyboardInTheField) {
    startInKeypad();
    for (int digit = 1; digit <= 9; ++digit) EXPECT_TRUE(keypad.digits[digit].leavesFocus);
    for (const display::Key* key :
         {&keypad.SSCommand10, &keypad.SSCommand11, &keypad.SSCommand13}) {
        EXPECT_TRUE(key->leavesFocus) << key->name();
    }
    EXPECT_FALSE(keypad.SSCommand12.leavesFocus);
}

TEST_F(TunerKeypad, EachDigitKeyAppendsItsDigit) {
    startInKeypad();
    for (int digit = 1; digit <= 9; ++digit) {
        EXPECT_EQ(keypad.digits[digit].name(), "SSCommand" + std::to_string(digit));
        EXPECT_EQ(keypad.digits[digit].caption, std::to_string(digit));
        bench.click(keypad.digits[digit]);
    }
    bench.click(keypad.SSCommand13);
    EXPECT_EQ(keypad.Text1.text, "1234567890");
}

TEST_F(TunerKeypad, ClsEmptiesTheDigits) {
    startInKeypad();
    bench.click(keypad.digits[9]);
    bench.click(keypad.SSCommand11);
    EXPECT_EQ(keypad.Text1.text, "");
}

TEST_F(TunerKeypad, TypedCharactersPassOnlyIfTheyAreDigits) {
    startInKeypad();
    bench.type(keypad.Text1, "9a8.1 -+e5");
    EXPECT_EQ(keypad.Text1.text, "9815");
    EXPECT_EQ(bench.desktop.beeps, 6);
}

TEST_F(TunerKeypad, EnterInTheFieldTunesAsTheKeyDoes) {
    startInKeypad();
    bench.type(keypad.Text1, "1025");
    bench.hand.enter(keypad.Text1);
    bench.desktop.settle();
    EXPECT_EQ(bench.formB.TunedFreq, 1025);
    EXPECT_EQ(keypad.Text1.text, "1025");
    EXPECT_EQ(bench.desktop.beeps, 0);
    EXPECT_TRUE(keypad.visible);
}

TEST_F(TunerKeypad, TunesThroughTheBarAndLeavesTheMemory) {
    startInKeypad();
    enter("1025");
    EXPECT_EQ(bench.formB.HScroll1.value, 150);
    EXPECT_EQ(bench.state.HalfStep, "0");
    EXPECT_EQ(bench.state.MemoryFreq, "1025");
    EXPECT_EQ(bench.formB.MemoryState, "cero");
    EXPECT_EQ(bench.formB.OffMemory, 1);
    EXPECT_EQ(bench.takeCalls(),
              (std::vector<std::string>{"HM_Parar", "HM_Normal(1025, 0, 0, 0, 0)"}));
}

TEST_F(TunerKeypad, AHalfStepIsTunedAndHandedOnWithoutIt) {
    startInKeypad();
    enter("8755");
    EXPECT_EQ(bench.state.HalfStep, "5");
    EXPECT_EQ(bench.state.MemoryFreq, "875");
    EXPECT_EQ(bench.formB.TunedFreq, 875.5);
    EXPECT_EQ(bench.takeCalls().back(), "HM_Normal(875.5, 0, 0, 0, 0)");
    enter("10255");
    EXPECT_EQ(bench.formB.TunedFreq, 1025.5);
    EXPECT_EQ(bench.formB.Label_FrecRadio.caption, "102.55");
    enter("1025");
    EXPECT_EQ(bench.state.HalfStep, "0");
    EXPECT_EQ(bench.formB.TunedFreq, 1025);
}

TEST_F(TunerKeypad, TheFrequencyThatIsTunedAlreadyIsTunedAgain) {
    startInKeypad();
    enter("981");
    EXPECT_EQ(bench.takeCalls(),
              (std::vector<std::string>{"HM_Parar", "HM_Normal(981, 0, 0, 0, 0)"}));
    // The bar did not move: the rack stays on its memory.
    EXPECT_EQ(bench.formB.OffMemory, 0);
    enter("981");
    EXPECT_EQ(bench.takeCalls().size(), 2u);
    // A half step has the same position on the bar.
    enter("9815");
    EXPECT_EQ(bench.takeCalls().back(), "HM_Normal(981.5, 0, 0, 0, 0)");
}

TEST_F(TunerKeypad, OutsideTheBandNothingHappensAndTheDigitsStay) {
    startInKeypad();
    for (const char* digits : {"8700", "8705", "1085", "10250", "874", "1081", "10815", "", "0"}) {
        SCOPED_TRACE(digits);
        enter(digits);
        EXPECT_EQ(keypad.Text1.text, digits);
    }
    EXPECT_TRUE(bench.takeCalls().empty());
    EXPECT_TRUE(bench.desktop.boxes.empty());
    EXPECT_EQ(bench.desktop.beeps, 0);
    EXPECT_EQ(bench.state.HalfStep, "0");
    EXPECT_EQ(bench.state.MemoryFreq, "981");
    EXPECT_EQ(bench.formB.TunedFreq, 981);
}

TEST_F(TunerKeypad, BothEndsOfTheBandAreTuned) {
    startInKeypad();
    enter("875");
    EXPECT_EQ(bench.formB.TunedFreq, 875);
    enter("1080");
    EXPECT_EQ(bench.formB.TunedFreq, 1080);
    enter("10805");
    EXPECT_EQ(bench.formB.TunedFreq, 1080.5);
}

TEST_F(TunerKeypad, EveryTypedTextOfTheTablesTunesAsTheTableSays) {
    startInKeypad();
    int tuned = 0;
    for (const char* table : {"typed_frequencies.txt", "typed_frequencies_by_hand.txt"}) {
        for (const TypedRow& row : typedRows(table)) {
            SCOPED_TRACE("typed: \"" + row.typed + "\"");
            // The rack is disabled: only the program moves the bar here.
            bench.state.HalfStep = "0";
            bench.formB.HScroll1.value = 206;
            bench.state.MemoryFreq = "none";
            bench.takeCalls();
            enter(row.typed);
            if (row.keypadTuned == "-") {
                EXPECT_TRUE(bench.takeCalls().empty());
                EXPECT_EQ(bench.state.MemoryFreq, "none");
                continue;
            }
            ++tuned;
            EXPECT_EQ(shortText(bench.formB.TunedFreq), row.keypadTuned);
            EXPECT_EQ(bench.state.MemoryFreq, row.keypadHandsOn);
            EXPECT_EQ(bench.takeCalls().size(), 2u);
        }
    }
    EXPECT_GE(tuned, 100);
}

TEST_F(TunerKeypad, CloseGivesTheRackBack) {
    startInKeypad();
    bench.click(keypad.SSCommand12);
    EXPECT_FALSE(keypad.loaded());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_TRUE(bench.takeCalls().empty());
    bench.openKeypad();
    EXPECT_EQ(keypad.Text1.text, "");
}

TEST_F(TunerKeypad, DraggingMovesTheKeypadAlone) {
    startInKeypad();
    const float rackLeft = bench.form1.left;
    const float left = keypad.left;
    const float top = keypad.top;
    bench.hand.mouseDown(keypad.Faceplate, {100, 200, true});
    bench.hand.mouseMove(keypad.Faceplate, {150, 180, true});
    bench.desktop.settle();
    EXPECT_EQ(keypad.left.get(), left + 50);
    EXPECT_EQ(keypad.top.get(), top - 20);
    EXPECT_EQ(bench.form1.left.get(), rackLeft);
}

TEST_F(TunerKeypad, MovingWithoutTheButtonMovesNothing) {
    startInKeypad();
    const float left = keypad.left;
    bench.hand.mouseMove(keypad.Faceplate, {500, 500, false});
    bench.desktop.settle();
    EXPECT_EQ(keypad.left.get(), left);
}

TEST_F(TunerKeypad, HintsAtWhatItTakes) {
    startInKeypad();
    EXPECT_EQ(keypad.Hint.caption, "875 ... 1080, 8755 = 87.55");
    EXPECT_TRUE(keypad.Hint.visible);
}

TEST_F(TunerKeypad, AmberRingStandsAroundDigitsThatNothingCanMakeAFrequency) {
    startInKeypad();
    EXPECT_FALSE(keypad.Ring.visible);
    for (const char* digits : {"9", "98", "981", "9815", "1", "10", "102", "1025", "10255"}) {
        bench.edit(keypad.Text1, digits);
        EXPECT_FALSE(keypad.Ring.visible) << digits;
    }
    for (const char* digits : {"2", "1081", "86", "870", "8705", "9810", "10256", "98155"}) {
        bench.edit(keypad.Text1, digits);
        EXPECT_TRUE(keypad.Ring.visible) << digits;
    }
    bench.click(keypad.SSCommand11);
    EXPECT_FALSE(keypad.Ring.visible);
}

TEST_F(TunerKeypad, AmberRingComesWithEnterWhereDigitsAreTooFew) {
    startInKeypad();
    enter("98");
    EXPECT_TRUE(keypad.Ring.visible);
    EXPECT_EQ(keypad.Text1.text, "98");
    bench.type(keypad.Text1, "1");
    EXPECT_FALSE(keypad.Ring.visible);
    enter("981");
    EXPECT_FALSE(keypad.Ring.visible);
    enter("");
    EXPECT_FALSE(keypad.Ring.visible);
}

TEST_F(TunerKeypad, EnterSelectsTheTextSoThatTheNextTypedDigitReplacesIt) {
    startInKeypad();
    bench.type(keypad.Text1, "1025");
    EXPECT_FALSE(keypad.Text1.allSelected());
    bench.hand.enter(keypad.Text1);
    bench.settle();
    EXPECT_EQ(keypad.Text1.text, "1025");
    EXPECT_TRUE(keypad.Text1.allSelected());
    bench.type(keypad.Text1, "98");
    EXPECT_EQ(keypad.Text1.text, "98");
    EXPECT_FALSE(keypad.Text1.allSelected());
    bench.click(keypad.SSCommand10);
    EXPECT_TRUE(keypad.Text1.allSelected()) << "a wrong value too";
    // A key of the pad appends, as usual.
    bench.click(keypad.digits[1]);
    EXPECT_EQ(keypad.Text1.text, "981");
}

TEST(TypedBeginnings, CanBecomeTunableWhereSomeEndingMakesThem) {
    // Compared with all texts of up to five digits.
    std::set<std::string> beginnings;
    for (int number = 1; number <= 99999; ++number) {
        const std::string text = std::to_string(number);
        if (!keypadFrequency(text)) continue;
        for (std::size_t length = 1; length <= text.size(); ++length) {
            beginnings.insert(text.substr(0, length));
        }
    }
    for (int number = 1; number <= 99999; ++number) {
        const std::string text = std::to_string(number);
        ASSERT_EQ(canBecomeTunable(text), beginnings.contains(text)) << text;
    }
    EXPECT_TRUE(canBecomeTunable(""));
    EXPECT_TRUE(canBecomeTunable("0"));
    EXPECT_TRUE(canBecomeTunable("098"));
}

}  // namespace
}  // namespace hmonitor::test
