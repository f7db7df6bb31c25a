// SPDX-License-Identifier: GPL-3.0-or-later
// What both dialogs have in common: keyboard, accessible names, tips, and controls that do not
// touch.
#include <algorithm>
#include <map>

#include "tests/tuner/editor_bench.h"

namespace hmonitor::test {
namespace {

using display::Box;
using display::Control;
using display::Form;

std::vector<std::string> tabOrderOf(const Form& form) {
    std::map<int, std::string> order;
    for (const Control* control : form.controls()) {
        if (!control->interactive() || !control->shown()) continue;
        EXPECT_GT(control->tabIndex, 0) << control->name();
        EXPECT_TRUE(order.emplace(control->tabIndex, control->name()).second) << control->name();
    }
    std::vector<std::string> names;
    for (const auto& [index, name] : order) names.push_back(name);
    return names;
}

bool overlap(const Box& a, const Box& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

void checkPlaces(const Form& form) {
    std::vector<const Control*> acted;
    for (const Control* control : form.controls()) {
        EXPECT_EQ(control->timesPlaced, 1) << control->name();
        if (!control->interactive() || !control->shown()) continue;
        const Box box = control->boxOnForm();
        EXPECT_GE(box.left, 0) << control->name();
        EXPECT_GE(box.top, 0) << control->name();
        EXPECT_LE(box.right(), form.width) << control->name();
        EXPECT_LE(box.bottom(), form.height) << control->name();
        acted.push_back(control);
    }
    for (std::size_t i = 0; i < acted.size(); ++i) {
        for (std::size_t j = i + 1; j < acted.size(); ++j) {
            EXPECT_FALSE(overlap(acted[i]->boxOnForm(), acted[j]->boxOnForm()))
                << acted[i]->name() << " and " << acted[j]->name();
        }
    }
}

/// Checks that captions fit, in twips: a bold letter of B612 is up to 0.62 of its height wide.
void checkCaptions(Form& form) {
    constexpr float kLetter = 0.62f * 120;
    for (Control* control : form.controls()) {
        const float room = control->width - 120;
        if (auto* key = dynamic_cast<display::Key*>(control)) {
            EXPECT_LE(kLetter * static_cast<float>(key->caption.get().size()), room) << key->name();
        }
        // A check box has its square before the caption, and its caption is not bold.
        if (auto* box = dynamic_cast<display::CheckBox*>(control)) {
            EXPECT_LE(0.58f * 120 * static_cast<float>(box->caption.get().size()), room - 200)
                << box->name();
        }
    }
}

void checkAccessible(Form& form) {
    for (display::Language language : {display::Language::Spanish, display::Language::English}) {
        form.language = language;
        for (Control* control : form.controls()) {
            if (!control->interactive()) continue;
            EXPECT_FALSE(control->accessibleName().empty()) << control->name();
            const bool spanish = language == display::Language::Spanish;
            EXPECT_STRNE(spanish ? control->tip.spanish : control->tip.english, "")
                << control->name();
        }
    }
}

struct TunerWindows : testing::Test {
    EditorBench bench;
    Form_bSetMemories& editor = bench.editor;
    Form_bTuner& keypad = bench.keypad;
};

TEST_F(TunerWindows, TheEditorsTabOrderRunsFromThePresetsToTheOptions) {
    bench.startInEditor();
    std::vector<std::string> expected;
    for (int memory = 1; memory <= 16; ++memory) {
        expected.push_back("SSCommand" + std::to_string(memory));
    }
    for (const char* name : {"Text1", "Text2", "SSCommand20", "SSCommand22", "SSCommand17",
                             "SSCommand18", "SSCommand19"}) {
        expected.emplace_back(name);
    }
    // While the dialog is narrow, the focus skips the options.
    EXPECT_EQ(tabOrderOf(editor), expected);
    bench.click(editor.SSCommand19);
    for (const char* name :
         {"label_dbCorrection", "SSCommand21", "SSCheck1", "SSCheck2", "SSCheck3"}) {
        expected.emplace_back(name);
    }
    EXPECT_EQ(tabOrderOf(editor), expected);
}

TEST_F(TunerWindows, TheKeypadsTabOrderBeginsInTheField) {
    bench.start();
    bench.openKeypad();
    EXPECT_EQ(tabOrderOf(keypad),
              (std::vector<std::string>{"Text1", "SSCommand1", "SSCommand2", "SSCommand3",
                                        "SSCommand4", "SSCommand5", "SSCommand6", "SSCommand7",
                                        "SSCommand8", "SSCommand9", "SSCommand11", "SSCommand13",
                                        "SSCommand10", "SSCommand12"}));
}

TEST_F(TunerWindows, EveryControlStandsOnceInsideItsWindowAndClearOfTheOthers) {
    bench.startInEditor();
    checkPlaces(editor);
    bench.click(editor.SSCommand19);
    checkPlaces(editor);
    bench.click(editor.SSCommand18);
    bench.openKeypad();
    checkPlaces(keypad);
}

TEST_F(TunerWindows, CaptionsFitTheirKeys) {
    bench.startInEditor();
    checkCaptions(editor);
    bench.click(editor.SSCommand19);
    checkCaptions(editor);
    bench.click(editor.SSCommand18);
    bench.openKeypad();
    checkCaptions(keypad);
}

TEST_F(TunerWindows, EveryControlHasANameAndATipInBothLanguages) {
    bench.startInEditor();
    checkAccessible(editor);
    keypad.load();
    checkAccessible(keypad);
}

TEST_F(TunerWindows, EnterInAFieldSavesTheMemory) {
    bench.startInEditor();
    bench.edit(editor.Text1, "99.9");
    bench.hand.enter(editor.Text1);
    bench.desktop.settle();
    EXPECT_EQ(bench.record(1), "-RADIO UNO-999  ");
    bench.edit(editor.Text2, "OTRA");
    bench.hand.enter(editor.Text2);
    bench.desktop.settle();
    EXPECT_EQ(bench.record(1), "-OTRA     -999  ");
    EXPECT_TRUE(editor.visible);
}

TEST_F(TunerWindows, EnterElsewhereAcceptsTheEditor) {
    bench.startInEditor();
    bench.hand.enter(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.loaded());
    EXPECT_EQ(bench.state.MemoryNumber, "1");
}

TEST_F(TunerWindows, EscapeCancelsTheEditorWhileNothingWasChanged) {
    bench.startInEditor();
    bench.click(editor.SSCommand19);
    bench.click(editor.SSCommand21);
    bench.edit(editor.label_dbCorrection, "3");
    bench.hand.escape(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.loaded());
    EXPECT_TRUE(bench.rackUsable());
    // If the correction had been accepted, it would be here.
    EXPECT_EQ(bench.state.DbCorrection10, "0");
}

TEST_F(TunerWindows, EscapeKeepsWhatWasSavedAndDeleted) {
    bench.startInEditor();
    bench.save("99.9", "NUEVA");
    bench.select(3);
    bench.click(editor.SSCommand22);
    bench.select(1);
    const std::string changed = bench.read("halden.dat");
    bench.hand.escape(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.loaded());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_EQ(bench.read("halden.dat"), changed);
    EXPECT_EQ(bench.record(1), "-NUEVA    -999  ");
    // When opened again, nothing has been changed.
    bench.openEditor();
    EXPECT_EQ(editor.cancelKey(), &editor.SSCommand18);
}

TEST_F(TunerWindows, CancelsTipSaysHowManyChangesItTakesBack) {
    bench.startInEditor();
    const auto tip = [this] { return std::string(editor.SSCommand18.tip.english); };
    EXPECT_EQ(tip(), "Closes and leaves the memories as they were when this window opened");
    bench.save("99.9", "NUEVA");
    EXPECT_EQ(tip(), "Closes and takes back 1 change of the memories; Escape keeps them");
    const auto drawn = editor.SSCommand18.revision();
    bench.select(3);
    bench.click(editor.SSCommand22);
    EXPECT_EQ(tip(), "Closes and takes back 2 changes of the memories; Escape keeps them");
    // The screen hears of it.
    EXPECT_GT(editor.SSCommand18.revision(), drawn);
}

TEST(TunerWindowsTip, CountsInSpanishToo) {
    EditorBench bench(RackBench::kSpanish);
    bench.startInEditor();
    bench.save("99.9", "NUEVA");
    EXPECT_STREQ(bench.editor.SSCommand18.tip.spanish,
                 "Cierra y deshace 1 cambio de las memorias; Escape los conserva");
}

TEST_F(TunerWindows, ASaveThatCouldNotBeWrittenIsNoChange) {
    bench.desktop.answerEveryBox = true;
    bench.startInEditor();
    bench.save("87.4", "FALSA");
    EXPECT_EQ(editor.cancelKey(), &editor.SSCommand18);
}

TEST_F(TunerWindows, TheWindowsCloseCancelsTheEditor) {
    bench.start();
    const std::string before = bench.read("halden.dat");
    bench.openEditor();
    bench.save("99.9", "NUEVA");
    bench.hand.close(editor);
    bench.desktop.settle();
    EXPECT_FALSE(editor.loaded());
    EXPECT_TRUE(bench.rackUsable());
    EXPECT_EQ(bench.read("halden.dat"), before);
}

TEST_F(TunerWindows, EscapeAndTheWindowsCloseCloseTheKeypad) {
    bench.start();
    bench.openKeypad();
    bench.hand.escape(keypad);
    bench.desktop.settle();
    EXPECT_FALSE(keypad.loaded());
    EXPECT_TRUE(bench.rackUsable());
    bench.openKeypad();
    bench.hand.close(keypad);
    bench.desktop.settle();
    EXPECT_FALSE(keypad.loaded());
    EXPECT_TRUE(bench.rackUsable());
}

TEST_F(TunerWindows, OpeningThemClosesWhatTheStartLeftOpenOfTheSpectrum) {
    bench.readings.field = 70;
    bench.start();
    ASSERT_TRUE(bench.forms.formD1.visible);
    bench.openEditor();
    EXPECT_FALSE(bench.forms.formD1.loaded());
    EXPECT_TRUE(editor.visible);
    EXPECT_TRUE(bench.rackDisabled());
    // The question for a new spectrum, from the same window.
    bench.click(editor.SSCommand18);
    bench.hand.doubleClick(bench.formD.PictureGraph1);
    bench.desktop.settle();
    bench.program.enableRack();
    bench.click(bench.forms.formD1.Command3D1);
    ASSERT_TRUE(bench.forms.formNewSpectro.visible);
    bench.openKeypad();
    EXPECT_FALSE(bench.forms.formNewSpectro.loaded());
    EXPECT_FALSE(bench.forms.formD1.loaded());
    EXPECT_TRUE(keypad.visible);
    EXPECT_TRUE(bench.rackDisabled());
}

TEST_F(TunerWindows, TheEditorOpensOnTheMemoryAlsoWhereClosingTheSpectrumRetunes) {
    bench.readings.field = 70;
    bench.start();
    // A failed run returns the unit when its window is closed.
    bench.driver.superResults = {1};
    bench.click(bench.forms.formD1.Command3D1);
    bench.click(bench.forms.formNewSpectro.Command3D1);
    bench.takeCalls();
    bench.openEditor();
    EXPECT_EQ(bench.takeCalls(),
              (std::vector<std::string>{"HM_Parar", "HM_Normal(981, 0, 0, 0, 0)"}));
    EXPECT_EQ(editor.SelectedMemory, "1");
    EXPECT_TRUE(bench.rackDisabled());
}

TEST_F(TunerWindows, EnterOnTheKeypadsWindowTunes) {
    bench.start();
    bench.openKeypad();
    bench.edit(keypad.Text1, "1025");
    bench.hand.enter(keypad);
    bench.desktop.settle();
    EXPECT_EQ(bench.formB.TunedFreq, 1025);
}

TEST(TunerWindowsInSpanish, SpeakSpanishAndLabelTheFieldsSo) {
    EditorBench bench(RackBench::kSpanish);
    bench.startInEditor();
    EXPECT_EQ(bench.editor.language.get(), display::Language::Spanish);
    EXPECT_EQ(bench.editor.caption, "Memorias");
    EXPECT_EQ(bench.editor.Label_Frequency.caption, "Frecuencia [MHz]");
    EXPECT_EQ(bench.editor.Label_Name.caption, "Nombre");
    EXPECT_EQ(bench.editor.Label_Selected.caption, "Memoria 1");
    EXPECT_EQ(bench.editor.SSCommand20.accessibleName(), "Guardar");
    bench.keypad.load();
    EXPECT_EQ(bench.keypad.SSCommand12.accessibleName(), "Cerrar");
}

TEST(TunerWindowsInEnglish, SpeakEnglishAndLabelTheFieldsSo) {
    for (const int language : {RackBench::kEnglish, RackBench::kPortuguese}) {
        EditorBench bench(language);
        bench.startInEditor();
        EXPECT_EQ(bench.editor.language.get(), display::Language::English);
        EXPECT_EQ(bench.editor.Label_Name.caption, "Name");
        EXPECT_EQ(bench.editor.SSCommand20.accessibleName(), "Save");
    }
}

}  // namespace
}  // namespace hmonitor::test
