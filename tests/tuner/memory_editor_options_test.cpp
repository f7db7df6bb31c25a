// SPDX-License-Identifier: GPL-3.0-or-later
// The wide part of the memory editor: options of the panels and the field correction.
#include "tests/tuner/editor_bench.h"

namespace hmonitor::test {
namespace {

struct EditorOptions : testing::Test {
    EditorBench bench;
    Form_bSetMemories& editor = bench.editor;

    void startWith(const std::vector<std::string>& settings) {
        bench.start();
        bench.write("hm-16.dat", lines(settings));
        bench.openEditor();
    }
    /// Accepts this correction and returns the settings that were written.
    std::string settingsAfter(const std::string& correction) {
        if (editor.WidthState == 1) bench.click(editor.SSCommand19);
        bench.click(editor.SSCommand21);
        bench.edit(editor.label_dbCorrection, correction);
        bench.click(editor.SSCommand17);
        return bench.read("hm-16.dat");
    }
};

TEST_F(EditorOptions, ComeFromLines2To5) {
    startWith({"1", "-3.5", "0", "1", "1", "0", "0", "0"});
    EXPECT_EQ(editor.label_dbCorrection.text, "-3.5");
    EXPECT_FALSE(editor.SSCheck1.checked);
    EXPECT_TRUE(editor.SSCheck2.checked);
    EXPECT_TRUE(editor.SSCheck3.checked);
}

TEST_F(EditorOptions, EachBoxReadsItsOwnLine) {
    startWith({"1", "0", "1", "0", "0", "1", "1", "1"});
    EXPECT_TRUE(editor.SSCheck1.checked);
    EXPECT_FALSE(editor.SSCheck2.checked);
    EXPECT_FALSE(editor.SSCheck3.checked);
}

TEST_F(EditorOptions, AreAcceptedIntoLines2To5Alone) {
    startWith({"7", "0", "0", "1", "0", "1", "1", "-12.5"});
    bench.click(editor.SSCommand19);
    bench.check(editor.SSCheck1, true);
    bench.check(editor.SSCheck3, true);
    EXPECT_EQ(settingsAfter("2"), lines({"7", "2", "1", "0", "1", "1", "1", "-12.5"}));
    EXPECT_EQ(bench.state.DbCorrection10, "20");
}

TEST_F(EditorOptions, LinesThatItDoesNotOwnStayToTheByte) {
    startWith({" 1 ", "0", "0", "1", "0", " 0", "0.0", "abc"});
    bench.click(editor.SSCommand17);
    EXPECT_EQ(bench.read("hm-16.dat"), lines({" 1 ", "0", "0", "1", "0", " 0", "0.0", "abc"}));
}

TEST_F(EditorOptions, TheCorrectionIsWrittenWithoutALeadingBlankAndWithItsSign) {
    struct Row {
        const char* typed;
        const char* line2;
        const char* tenths;
    };
    const Row rows[] = {{"-3.5", "-3.5", "-35"}, {"2", "2", "20"},   {"+2", "2", "20"},
                        {"0.7", "0.7", "7"},     {".5", "0.5", "5"}, {"-.5", "-0.5", "-5"},
                        {"", "0", "0"},          {"-", "0", "0"},    {"1.25", "1.25", "12.5"},
                        {"  4", "4", "40"},      {"1e3", "1", "10"}, {"abc", "0", "0"},
                        {"3.0", "3", "30"},      {"-0", "0", "0"},   {"1.2.3", "1.2", "12"},
                        {"12,5", "12", "120"},   {"--3", "0", "0"},  {"100", "100", "1000"}};
    bench.start();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.typed);
        bench.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
        bench.openEditor();
        EXPECT_EQ(settingsAfter(row.typed), lines({"1", row.line2, "0", "1", "0", "0", "0", "0"}));
        EXPECT_EQ(bench.state.DbCorrection10, row.tenths);
    }
}

TEST_F(EditorOptions, CancelWritesNoOption) {
    startWith({"1", "0", "0", "1", "0", "0", "0", "0"});
    bench.click(editor.SSCommand19);
    bench.check(editor.SSCheck3, true);
    bench.click(editor.SSCommand21);
    bench.edit(editor.label_dbCorrection, "9");
    bench.click(editor.SSCommand18);
    EXPECT_EQ(bench.read("hm-16.dat"), lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
    EXPECT_EQ(bench.state.DbCorrection10, "0");
}

TEST_F(EditorOptions, TickingOneTuningOptionClearsTheOther) {
    startWith({"1", "0", "0", "1", "0", "0", "0", "0"});
    bench.click(editor.SSCommand19);
    bench.check(editor.SSCheck1, true);
    EXPECT_TRUE(editor.SSCheck1.checked);
    EXPECT_FALSE(editor.SSCheck2.checked);
    bench.check(editor.SSCheck2, true);
    EXPECT_FALSE(editor.SSCheck1.checked);
    EXPECT_TRUE(editor.SSCheck2.checked);
}

TEST_F(EditorOptions, ClearingOneTuningOptionTicksTheOther) {
    startWith({"1", "0", "0", "1", "0", "0", "0", "0"});
    bench.click(editor.SSCommand19);
    bench.check(editor.SSCheck2, false);
    EXPECT_TRUE(editor.SSCheck1.checked);
    EXPECT_FALSE(editor.SSCheck2.checked);
    bench.check(editor.SSCheck1, false);
    EXPECT_FALSE(editor.SSCheck1.checked);
    EXPECT_TRUE(editor.SSCheck2.checked);
    EXPECT_FALSE(editor.SSCheck3.checked);
}

TEST_F(EditorOptions, OfTwoTuningOptionsInTheFileTheLaterOneStands) {
    startWith({"1", "0", "1", "1", "0", "0", "0", "0"});
    EXPECT_FALSE(editor.SSCheck1.checked);
    EXPECT_TRUE(editor.SSCheck2.checked);
}

TEST_F(EditorOptions, TheCorrectionIsLockedUntilModify) {
    startWith({"1", "1.5", "0", "1", "0", "0", "0", "0"});
    bench.click(editor.SSCommand19);
    EXPECT_TRUE(editor.label_dbCorrection.locked);
    bench.edit(editor.label_dbCorrection, "7");
    bench.type(editor.label_dbCorrection, "7");
    EXPECT_EQ(editor.label_dbCorrection.text, "1.5");
    bench.click(editor.SSCommand21);
    EXPECT_FALSE(editor.label_dbCorrection.locked);
    bench.edit(editor.label_dbCorrection, "");
    bench.type(editor.label_dbCorrection, "-7.5");
    EXPECT_EQ(editor.label_dbCorrection.text, "-7.5");
}

TEST_F(EditorOptions, TheCorrectionBeepsAtLettersAndTakesSignsDigitsAndPoint) {
    startWith({"1", "0", "0", "1", "0", "0", "0", "0"});
    bench.click(editor.SSCommand19);
    bench.click(editor.SSCommand21);
    bench.edit(editor.label_dbCorrection, "");
    bench.type(editor.label_dbCorrection, "+a1,2 e3.-4");
    EXPECT_EQ(editor.label_dbCorrection.text, "+123.-4");
    EXPECT_EQ(bench.desktop.beeps, 4);
}

TEST_F(EditorOptions, TheCorrectionReachesTheFieldReadoutsAndTheMultipathRow) {
    bench.readings.field = 50;
    bench.readings.multipath = 5;
    bench.start();
    bench.advance(std::chrono::milliseconds(1000));
    EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "50.0");
    EXPECT_EQ(bench.form1.FieldTenths, 500);
    EXPECT_FALSE(bench.form1.multybad.visible);
    bench.openEditor();
    // 44.9 dB are too weak to judge the multipath.
    settingsAfter("-5.1");
    bench.advance(std::chrono::milliseconds(1000));
    EXPECT_EQ(bench.form1.Label_FieldIntensity.caption, "44.9");
    EXPECT_EQ(bench.form1.FieldTenths, 449);
    EXPECT_TRUE(bench.form1.multybad.visible);
}

TEST_F(EditorOptions, LogFilesReachTheUnitAtTheNextTuning) {
    bench.startInEditor();
    bench.click(editor.SSCommand19);
    bench.check(editor.SSCheck3, true);
    bench.click(editor.SSCommand17);
    bench.takeCalls();
    bench.click(bench.formB.SSCommand1);
    EXPECT_EQ(bench.takeCalls().back(), "HM_Normal(1025.5, 0, 0, 0, 1)");
}

// Widths.

TEST_F(EditorOptions, TheDialogOpensNarrow) {
    bench.startInEditor();
    EXPECT_EQ(editor.width.get(), 4445);
    EXPECT_EQ(editor.SSCommand19.caption, "Advanced >>");
    EXPECT_EQ(editor.WidthState, 1);
    EXPECT_FALSE(editor.SSCheck1.shown());
    EXPECT_FALSE(editor.SSCommand21.shown());
}

TEST_F(EditorOptions, AdvancedWidensAndOptimizeNarrows) {
    bench.startInEditor();
    bench.click(editor.SSCommand19);
    EXPECT_EQ(editor.width.get(), 7700);
    EXPECT_EQ(editor.SSCommand19.caption, "Optimize <<");
    EXPECT_EQ(editor.WidthState, 2);
    EXPECT_TRUE(editor.SSCheck1.shown());
    EXPECT_TRUE(editor.SSCommand21.shown());
    bench.click(editor.SSCommand19);
    EXPECT_EQ(editor.width.get(), 4445);
    EXPECT_EQ(editor.SSCommand19.caption, "Advanced >>");
    EXPECT_EQ(editor.WidthState, 1);
}

}  // namespace
}  // namespace hmonitor::test
