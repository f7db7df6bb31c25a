// SPDX-License-Identifier: GPL-3.0-or-later
// Opening the memory editor, choosing memories, and what it shows of them.
#include "tests/tuner/editor_bench.h"
#include "tuner/preset_look.h"

namespace hmonitor::test {
namespace {

struct MemoryEditor : testing::Test {
    EditorBench bench;
    Form_bSetMemories& editor = bench.editor;

    std::string number() {
        return {shownDigit(editor.memoryTens, preset_look::kDigit),
                shownDigit(editor.memoryUnits, preset_look::kDigit)};
    }
    std::string emptyKeys() {
        std::string keys;
        for (int memory = 1; memory <= 16; ++memory) {
            const display::Colour colour = editor.presets[memory].colour;
            EXPECT_TRUE(colour == preset_look::kEmpty || colour == preset_look::kStored);
            keys += colour == preset_look::kEmpty ? 'e' : 's';
        }
        return keys;
    }
};

TEST_F(MemoryEditor, BeginsInTheFrequencyFieldEachTimeItOpens) {
    bench.start();
    for (int time = 0; time < 2; ++time) {
        bench.openEditor();
        EXPECT_EQ(bench.desktop.focus, &editor.Text1);
        bench.click(editor.SSCommand18);
        EXPECT_EQ(bench.desktop.focus, nullptr);
    }
}

TEST_F(MemoryEditor, OpensFromTheSetKeyOnTheMemoryOfTheRack) {
    bench.start();
    bench.press(bench.formB.Image3);
    EXPECT_EQ(bench.formB.Image3.picture, "SetA");
    EXPECT_FALSE(editor.visible);
    bench.release(bench.formB.Image3);
    EXPECT_EQ(bench.formB.Image3.picture, "SetN");
    EXPECT_TRUE(editor.visible);
    EXPECT_TRUE(bench.rackDisabled());
    EXPECT_EQ(editor.SelectedMemory, "1");
    EXPECT_EQ(editor.Text1.text, "98.1");
    EXPECT_EQ(editor.Text2.text, "RADIO UNO");
    EXPECT_EQ(number(), " 1");
    EXPECT_EQ(editor.IsEmptySlot, 0);
    EXPECT_EQ(bench.state.MemoryEdit, "0");
}

TEST_F(MemoryEditor, ColoursTheKeysOfEmptyMemoriesOtherwise) {
    bench.startInEditor();
    EXPECT_EQ(emptyKeys(), "seseeeeeeeeeeees");
    EXPECT_EQ(editor.SelectedMemory, "1");
    EXPECT_STREQ(editor.presets[1].says.english, "Memory 1");
    EXPECT_STREQ(editor.presets[2].says.english, "Memory 2, empty");
    EXPECT_STREQ(editor.presets[2].says.spanish, "Memoria 2, vacía");
}

TEST_F(MemoryEditor, AKeySelectsItsMemoryAndTunesIt) {
    bench.startInEditor();
    bench.takeCalls();
    bench.select(3);
    EXPECT_EQ(editor.SelectedMemory, "3");
    EXPECT_EQ(editor.Text1.text, "102.55");
    EXPECT_EQ(editor.Text2.text, "R. TRES");
    EXPECT_EQ(number(), " 3");
    EXPECT_EQ(bench.state.MemoryNumber, "3");
    EXPECT_EQ(bench.formB.MemoryNumber, 3);
    EXPECT_EQ(bench.formB.TunedFreq, 1025.5);
    EXPECT_EQ(bench.state.HalfStep, "5");
    EXPECT_EQ(bench.takeCalls(),
              (std::vector<std::string>{"HM_Parar", "HM_Normal(1025.5, 0, 0, 0, 0)"}));
    EXPECT_TRUE(editor.enabled);
    EXPECT_TRUE(bench.rackDisabled());
}

TEST_F(MemoryEditor, TheDialogIsDisabledWhileItTunes) {
    bench.startInEditor();
    int seen = 0;
    bench.driver.duringNormal = [&] {
        ++seen;
        EXPECT_FALSE(editor.enabled);
        EXPECT_EQ(bench.state.MemoryNumber, "16");
    };
    bench.select(16);
    EXPECT_EQ(seen, 1);
    EXPECT_TRUE(editor.enabled);
    EXPECT_EQ(number(), "16");
}

TEST_F(MemoryEditor, AnEmptyMemoryShowsEmptyFieldsAndDoesNotTune) {
    bench.startInEditor();
    bench.takeCalls();
    bench.select(7);
    EXPECT_EQ(editor.SelectedMemory, "7");
    EXPECT_EQ(editor.Text1.text, "");
    EXPECT_EQ(editor.Text2.text, "");
    EXPECT_EQ(editor.IsEmptySlot, 1);
    EXPECT_EQ(number(), " 7");
    EXPECT_TRUE(bench.takeCalls().empty());
    EXPECT_EQ(bench.state.MemoryNumber, "1");
    EXPECT_EQ(bench.formB.MemoryNumber, 1);
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST_F(MemoryEditor, FromAnEmptyMemoryBackToOneThatHoldsAStation) {
    bench.startInEditor();
    bench.select(7);
    bench.select(16);
    EXPECT_EQ(editor.IsEmptySlot, 0);
    EXPECT_EQ(editor.Text1.text, "87.5");
    EXPECT_EQ(editor.Text2.text, "DIECISEIS");
}

TEST_F(MemoryEditor, ShowsHalfStepsAndCutsTheBlanksBehindAName) {
    bench.write("halden.dat", memoryBlock({{1, "A B", "8755"},
                                           {2, "", "1025"},
                                           {3, " X", "10805"},
                                           {4, "", "8754"},
                                           {5, "", "999"}}));
    bench.startInEditor();
    EXPECT_EQ(editor.Text1.text, "87.55");
    EXPECT_EQ(editor.Text2.text, "A B");
    bench.select(2);
    EXPECT_EQ(editor.Text1.text, "102.5");
    EXPECT_EQ(editor.Text2.text, "");
    bench.select(3);
    EXPECT_EQ(editor.Text1.text, "108.05");
    EXPECT_EQ(editor.Text2.text, " X");
    bench.select(5);
    EXPECT_EQ(editor.Text1.text, "99.9");
    // Below the smallest half step the text is no half step: three digits before the point.
    bench.select(4);
    EXPECT_EQ(editor.Text1.text, "875.4");
}

TEST_F(MemoryEditor, LightsTheKeyOfTheSelectedMemoryOnly) {
    bench.startInEditor();
    bench.select(16);
    for (int memory = 1; memory <= 16; ++memory) {
        EXPECT_EQ(editor.presets[memory].lit, memory == 16) << memory;
    }
}

TEST_F(MemoryEditor, EachOfTheSixteenKeysSelectsItsOwnMemory) {
    bench.startInEditor();
    for (int memory = 1; memory <= 16; ++memory) {
        bench.select(memory);
        EXPECT_EQ(editor.SelectedMemory, std::to_string(memory));
        const std::string two = memory < 10 ? " " + std::to_string(memory) : std::to_string(memory);
        EXPECT_EQ(number(), two);
    }
}

// Opening to store a frequency that was tuned by hand.

TEST_F(MemoryEditor, OpenedOffMemoryOffersTheTunedFrequencyForNoMemory) {
    bench.start();
    bench.tuneByHand(1012);
    bench.openEditor();
    EXPECT_EQ(bench.state.MemoryEdit, "1");
    EXPECT_EQ(editor.SelectedMemory, "cero");
    EXPECT_EQ(editor.Text1.text, "101.2");
    EXPECT_EQ(editor.Text2.text, "");
    EXPECT_EQ(number(), "  ");
    EXPECT_EQ(editor.Label_Selected.caption, "No memory");
    for (int memory = 1; memory <= 16; ++memory) EXPECT_FALSE(editor.presets[memory].lit);
}

TEST_F(MemoryEditor, OffersAFrequencyBelowAHundredMegahertzWithTwoDigitsBeforeThePoint) {
    bench.start();
    bench.tuneByHand(876);
    bench.openEditor();
    EXPECT_EQ(editor.Text1.text, "87.6");
}

TEST_F(MemoryEditor, OffersTheTenthOfAHalfStepThatWasTunedByHand) {
    bench.start();
    bench.openKeypad();
    bench.edit(bench.keypad.Text1, "10255");
    bench.click(bench.keypad.SSCommand10);
    bench.click(bench.keypad.SSCommand12);
    ASSERT_EQ(bench.formB.TunedFreq, 1025.5);
    bench.openEditor();
    EXPECT_EQ(editor.Text1.text, "102.5");
}

TEST_F(MemoryEditor, OpenToStoreOnAnEmptyMemoryReportsTheWrongFrequencyFirst) {
    bench.start();
    bench.tuneByHand(1012);
    bench.openEditor();
    const std::string before = bench.read("halden.dat");
    bench.desktop.boxAnswers = {"OK"};
    bench.takeCalls();
    bench.select(5);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "The frequency is incorrect.");
    EXPECT_EQ(bench.state.MemoryEdit, "0");
    EXPECT_EQ(editor.Text1.text, "");
    EXPECT_EQ(editor.Text2.text, "");
    EXPECT_EQ(bench.read("halden.dat"), before);
    EXPECT_TRUE(bench.takeCalls().empty());
    // The user then types a frequency and saves.
    bench.save("101.2", "NUEVA");
    EXPECT_EQ(bench.record(5), "-NUEVA    -1012 ");
    EXPECT_EQ(bench.formB.TunedFreq, 1012);
    EXPECT_EQ(bench.formB.MemoryNumber, 5);
}

TEST_F(MemoryEditor, OpenToStoreReportsOnlyTheFirstEmptyMemory) {
    bench.start();
    bench.tuneByHand(1012);
    bench.openEditor();
    bench.desktop.boxAnswers = {"OK"};
    bench.select(5);
    bench.select(6);
    EXPECT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(editor.IsEmptySlot, 1);
}

TEST_F(MemoryEditor, OpenToStoreOnAMemoryThatHoldsAStationShowsAndTunesIt) {
    bench.start();
    bench.tuneByHand(1012);
    bench.openEditor();
    bench.select(3);
    EXPECT_EQ(bench.state.MemoryEdit, "0");
    EXPECT_EQ(editor.Text1.text, "102.55");
    EXPECT_EQ(bench.formB.TunedFreq, 1025.5);
    EXPECT_TRUE(bench.desktop.boxes.empty());
    // The offer is over: an empty memory brings no message now.
    bench.select(5);
    EXPECT_TRUE(bench.desktop.boxes.empty());
}

TEST_F(MemoryEditor, TheNumberOfTheRackGivesTheFrequencyItsPlaceBackWhenTheEditorStands) {
    bench.startInEditor();
    EXPECT_EQ(bench.editor.SelectedMemory, "1");
    EXPECT_EQ(bench.state.CurrentFreq, "981");
    bench.select(16);
    EXPECT_EQ(bench.state.CurrentFreq, "875");
}

TEST_F(MemoryEditor, OffAMemoryToo_TheFrequencyHasItsPlaceBack) {
    bench.start();
    bench.tuneByHand(985);
    bench.openEditor();
    EXPECT_EQ(bench.state.CurrentFreq, "985");
}

TEST_F(MemoryEditor, OpenedAgainStartsAfresh) {
    bench.startInEditor();
    bench.click(editor.SSCommand19);
    bench.select(7);
    bench.click(editor.SSCommand18);
    EXPECT_FALSE(editor.loaded());
    EXPECT_TRUE(bench.rackUsable());
    bench.openEditor();
    EXPECT_EQ(editor.SelectedMemory, "1");
    EXPECT_EQ(editor.WidthState, 1);
    EXPECT_EQ(editor.IsEmptySlot, 0);
    EXPECT_EQ(editor.Text1.text, "98.1");
}

TEST_F(MemoryEditor, ThePanelsGoOnMeasuringWhileItIsOpen) {
    bench.startInEditor();
    const int before = bench.driver.dataCalls;
    bench.beat(10);
    EXPECT_GE(bench.driver.dataCalls - before, 10);
}

TEST_F(MemoryEditor, BeingShownAgainDoesNotStartOver) {
    bench.startInEditor();
    bench.select(16);
    editor.hide();
    editor.show();
    EXPECT_EQ(editor.SelectedMemory, "16");
}

TEST_F(MemoryEditor, OpensWithItsFrequencySelectedSoThatATypedOneReplacesIt) {
    bench.startInEditor();
    EXPECT_EQ(editor.Text1.text, "98.1");
    EXPECT_TRUE(editor.Text1.allSelected());
    bench.type(editor.Text1, "99.9");
    EXPECT_EQ(editor.Text1.text, "99.9");
    bench.select(3);
    EXPECT_FALSE(editor.Text1.allSelected());
}

TEST_F(MemoryEditor, OpenedOffMemoryHasTheOfferedFrequencySelected) {
    bench.start();
    bench.tuneByHand(999);
    bench.openEditor();
    EXPECT_EQ(editor.Text1.text, "99.9");
    EXPECT_TRUE(editor.Text1.allSelected());
}

TEST_F(MemoryEditor, TheTipOfAnEmptyMemorySaysThatItClearsTheFields) {
    bench.startInEditor();
    for (int memory = 1; memory <= 16; ++memory) {
        const bool stored = memory == 1 || memory == 3 || memory == 16;
        const std::string spanish = editor.presets[memory].tip.spanish;
        const std::string english = editor.presets[memory].tip.english;
        EXPECT_EQ(english.find("clears the fields") == std::string::npos, stored) << memory;
        EXPECT_EQ(spanish.find("vacía los campos") == std::string::npos, stored) << memory;
    }
    bench.click(editor.SSCommand22);
    EXPECT_NE(std::string(editor.presets[1].tip.english).find("clears the fields"),
              std::string::npos);
}

TEST_F(MemoryEditor, TheKeysSayWhatTheirMemoriesHold) {
    bench.startInEditor();
    EXPECT_STREQ(editor.presets[1].tip.spanish,
                 "Memoria 1: RADIO UNO, 98.1 MHz.\nLa elige y la sintoniza");
    EXPECT_STREQ(editor.presets[1].tip.english,
                 "Memory 1: RADIO UNO, 98.1 MHz.\nSelects it and tunes it");
    EXPECT_STREQ(editor.presets[3].tip.english,
                 "Memory 3: R. TRES, 102.55 MHz.\nSelects it and tunes it");
    EXPECT_TRUE(std::string(editor.presets[2].tip.spanish).starts_with("Memoria 2, vacía.\n"));
    // A memory without a name shows its frequency.
    const auto drawn = editor.presets[1].revision();
    bench.save("99.9", "");
    EXPECT_STREQ(editor.presets[1].tip.english, "Memory 1: 99.9 MHz.\nSelects it and tunes it");
    // The screen hears of it.
    EXPECT_GT(editor.presets[1].revision(), drawn);
}

TEST_F(MemoryEditor, ListsAllMemories) {
    bench.startInEditor();
    for (int memory = 1; memory <= 16; ++memory) {
        EXPECT_EQ(editor.ListNumber[memory].caption, std::to_string(memory));
        const bool stored = memory == 1 || memory == 3 || memory == 16;
        EXPECT_EQ(editor.ListName[memory].caption.empty(), !stored) << memory;
        EXPECT_EQ(editor.ListFrequency[memory].caption.empty(), !stored) << memory;
    }
    EXPECT_EQ(editor.ListName[3].caption, "R. TRES");
    EXPECT_EQ(editor.ListFrequency[3].caption, "102.55");
    bench.select(2);
    bench.save("88.5", "NUEVA");
    EXPECT_EQ(editor.ListName[2].caption, "NUEVA");
    EXPECT_EQ(editor.ListFrequency[2].caption, "88.5");
    bench.click(editor.SSCommand22);
    EXPECT_TRUE(editor.ListName[2].caption.empty());
    EXPECT_TRUE(editor.ListFrequency[2].caption.empty());
}

TEST_F(MemoryEditor, TheLineOfTheSelectedMemoryStandsOut) {
    bench.startInEditor();
    bench.select(3);
    for (int memory = 1; memory <= 16; ++memory) {
        const bool bold = editor.ListName[memory].font.get().weight == display::Weight::Bold;
        EXPECT_EQ(bold, memory == 3) << memory;
        EXPECT_EQ(editor.ListNumber[memory].colour.get() == display::kWhite, memory == 3) << memory;
    }
}

}  // namespace
}  // namespace hmonitor::test
