// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "display/number_table.h"
#include "tests/display/sample_form.h"

namespace display::test {

using testing::ElementsAre;
using testing::IsEmpty;

/// A form with a picture box and a chart that have numbers.
class DrawingExport : public testing::Test {
 protected:
    DrawingExport() {
        form.PictureBox1.numbers = [] { return table("Spectrum"); };
        form.Chart1.numbers = [] { return table("Levels"); };
        form.show();
        desktop.queue().openGate();
        desktop.journal.clear();
    }
    static NumberTable table(const char* title) {
        return {title, "UNO 98.1 MHz 2026-05-04", {{"Level", "dB"}}, {{"-3.5"}}};
    }
    void save(Control& drawing) {
        desktop.hand.save(drawing);
        desktop.settle();
    }

    HeadlessDesktop desktop;
    SampleForm form{desktop};
};

TEST_F(DrawingExport, TheDrawingThatHasTheKeyboardIsMeantElseTheFirst) {
    EXPECT_EQ(drawingMeant(form, nullptr), &form.PictureBox1);
    EXPECT_EQ(drawingMeant(form, &form.Key1), &form.PictureBox1);
    EXPECT_EQ(drawingMeant(form, &form.Chart1), &form.Chart1);
}

TEST_F(DrawingExport, WhatIsNotShownIsNotMeant) {
    form.PictureBox1.visible = false;
    EXPECT_EQ(drawingMeant(form, &form.PictureBox1), &form.Chart1);
    form.Panel1.visible = false;
    EXPECT_EQ(drawingMeant(form, &form.Chart1), nullptr);
}

TEST_F(DrawingExport, AControlWithoutNumbersIsNoDrawing) {
    EXPECT_TRUE(hasDrawings(form));
    form.PictureBox1.numbers = nullptr;
    EXPECT_EQ(drawingMeant(form, &form.PictureBox1), &form.Chart1);
    form.Chart1.numbers = nullptr;
    EXPECT_FALSE(hasDrawings(form));
    EXPECT_EQ(drawingMeant(form, nullptr), nullptr);
}

TEST_F(DrawingExport, CopiesThePictureAndTheNumbers) {
    desktop.hand.copyPicture(form.Chart1);
    desktop.settle();
    EXPECT_THAT(desktop.copiedPictures, ElementsAre(&form.Chart1));
    EXPECT_EQ(desktop.clipboard, "");
    desktop.hand.copyNumbers(form.PictureBox1);
    desktop.settle();
    EXPECT_EQ(desktop.clipboard, "Level (dB),UNO 98.1 MHz 2026-05-04\r\n-3.5,\r\n");
    EXPECT_THAT(desktop.writtenFiles, IsEmpty());
}

TEST_F(DrawingExport, SavesWhatTheEndingSays) {
    desktop.saveAnswers = {"/there/a.png", "/there/b.SVG", "/there/c.csv", "/there/d.pdf"};
    for (int i = 0; i < 4; ++i) save(form.Chart1);
    EXPECT_EQ(desktop.writtenFiles["/there/a.png"], "png of Chart1");
    EXPECT_EQ(desktop.writtenFiles["/there/b.SVG"], "svg of Chart1");
    EXPECT_EQ(desktop.writtenFiles["/there/d.pdf"], "pdf of Chart1");
    EXPECT_EQ(desktop.writtenFiles["/there/c.csv"],
              "Level (dB),UNO 98.1 MHz 2026-05-04\r\n-3.5,\r\n");
}

TEST_F(DrawingExport, ProposesStationAndTitleInTheLanguageOfTheForm) {
    desktop.saveAnswers = {"", ""};
    save(form.Chart1);
    form.language = Language::Spanish;
    save(form.PictureBox1);
    ASSERT_EQ(desktop.saveQuestions.size(), 2u);
    EXPECT_EQ(desktop.saveQuestions[0].stem, "UNO 98.1 MHz 2026-05-04 Levels");
    EXPECT_EQ(desktop.saveQuestions[0].title, "Save");
    ASSERT_EQ(desktop.saveQuestions[0].kinds.size(), 4u);
    EXPECT_EQ(desktop.saveQuestions[0].kinds[0].ending, "png");
    EXPECT_EQ(desktop.saveQuestions[1].stem, "UNO 98.1 MHz 2026-05-04 Spectrum");
    EXPECT_EQ(desktop.saveQuestions[1].title, "Guardar");
    EXPECT_EQ(desktop.saveQuestions[1].kinds[2].words, "Números");
    EXPECT_THAT(desktop.writtenFiles, IsEmpty()) << "nothing is written after Cancel";
    EXPECT_THAT(desktop.boxes, IsEmpty());
}

TEST_F(DrawingExport, AFileThatCannotBeWrittenIsTold) {
    desktop.saveAnswers = {"/full/a.csv"};
    desktop.writeFault = "a.csv cannot be written: No space left on device";
    desktop.boxAnswers = {"ok"};
    save(form.Chart1);
    ASSERT_EQ(desktop.boxes.size(), 1u);
    EXPECT_EQ(desktop.boxes[0].title, "Levels");
    EXPECT_EQ(desktop.boxes[0].text, "a.csv cannot be written: No space left on device");
    EXPECT_EQ(desktop.boxes[0].icon, BoxIcon::Critical);
}

TEST_F(DrawingExport, WaitsForNobodyWhileARunHoldsTheThread) {
    desktop.queue().pushFilter({{&form.Key1}, {}});
    for (const auto act : {&Hand::copyPicture, &Hand::copyNumbers, &Hand::save})
        (desktop.hand.*act)(form.Chart1);
    desktop.letEventsThrough();
    desktop.queue().popFilter();
    desktop.settle();
    EXPECT_THAT(desktop.journal, IsEmpty()) << "a dialog inside a run would stop it";
    EXPECT_EQ(desktop.clipboard, "");
}

TEST_F(DrawingExport, AWindowThatLooksOnAsksForNoFileDuringARun) {
    form.looksOn = true;
    desktop.queue().pushFilter({{}, {}});
    desktop.hand.save(form.Chart1);
    desktop.hand.copyNumbers(form.Chart1);
    desktop.letEventsThrough();
    desktop.queue().popFilter();
    EXPECT_THAT(desktop.saveQuestions, IsEmpty());
    EXPECT_NE(desktop.clipboard, "");
}

TEST_F(DrawingExport, OfADisabledFormNothingIsCopied) {
    form.enabled = false;
    desktop.hand.copyNumbers(form.Chart1);
    desktop.settle();
    EXPECT_EQ(desktop.clipboard, "");
}

}  // namespace display::test
