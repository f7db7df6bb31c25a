// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing.h"

#include <gtest/gtest.h>

#include "display/headless/headless_desktop.h"
#include "tests/display/sample_form.h"

namespace display::test {
namespace {

class Drawings : public testing::Test {
 protected:
    Drawings() { form.show(); }
    HeadlessDesktop desktop;
    SampleForm form{desktop};
    Drawing& drawing = form.PictureBox1.drawing;  // 1800 x 1500 twips, unit 15, frame 2
};

TEST_F(Drawings, MeasureInTheirOwnScale) {
    EXPECT_EQ(drawing.outerWidth(), 120);
    EXPECT_EQ(drawing.outerHeight(), 100);
    EXPECT_EQ(drawing.scaleWidth(), 116);
    EXPECT_EQ(drawing.scaleHeight(), 96);
}

TEST_F(Drawings, KeepWhatTheyShowInOrder) {
    drawing.foreground = kRed;
    drawing.box(50, 60, 10, 20);
    drawing.lineWidth = 3;
    drawing.line(0, 0, 5, 5);
    drawing.foreground = kGreen;
    drawing.textX = 7;
    drawing.textY = 8;
    drawing.bold = true;
    drawing.print("98.5");
    ASSERT_EQ(drawing.marks().size(), 3u);
    const Mark& box = drawing.marks()[0];
    EXPECT_EQ(box.kind, Mark::Kind::Filled);
    EXPECT_EQ(box.colour, kRed);
    EXPECT_EQ(box.x1, 10);
    EXPECT_EQ(box.y2, 60);
    const Mark& line = drawing.marks()[1];
    EXPECT_EQ(line.kind, Mark::Kind::Stroke);
    EXPECT_EQ(line.lineWidth, 3);
    const Mark& text = drawing.marks()[2];
    EXPECT_EQ(text.kind, Mark::Kind::Print);
    EXPECT_EQ(text.text, "98.5");
    EXPECT_EQ(text.x1, 7);
    EXPECT_EQ(text.y1, 8);
    EXPECT_TRUE(text.bold);
    EXPECT_EQ(text.colour, kGreen);
    EXPECT_LT(box.number, line.number);
    EXPECT_LT(line.number, text.number);
}

TEST_F(Drawings, EachMarkRaisesTheRevision) {
    auto before = form.PictureBox1.revision();
    drawing.box(0, 0, 1, 1);
    EXPECT_GT(form.PictureBox1.revision(), before);
    before = form.PictureBox1.revision();
    drawing.clear();
    EXPECT_GT(form.PictureBox1.revision(), before);
    before = form.PictureBox1.revision();
    drawing.clear();
    EXPECT_EQ(form.PictureBox1.revision(), before);
}

TEST_F(Drawings, ABoxDropsWhatItCoversWholeAndSaysSo) {
    drawing.line(10, 30, 20, 10);
    drawing.box(12, 12, 18, 18);
    drawing.line(0, 0, 20, 20);
    const auto rebuilt = drawing.rebuilt();
    drawing.box(10, 10, 20, 30);
    ASSERT_EQ(drawing.marks().size(), 2u);
    EXPECT_EQ(drawing.marks()[0].x1, 0);
    EXPECT_GT(drawing.rebuilt(), rebuilt);
}

TEST_F(Drawings, ABoxBesideDropsNothing) {
    drawing.line(10, 10, 20, 20);
    const auto rebuilt = drawing.rebuilt();
    drawing.box(11, 10, 20, 20);
    EXPECT_EQ(drawing.marks().size(), 2u);
    EXPECT_EQ(drawing.rebuilt(), rebuilt);
}

TEST_F(Drawings, ABoxOverTheWholeCanvasDropsAllThatStandsOnItHoweverFarItReaches) {
    drawing.textX = 115;
    drawing.textY = 95;
    drawing.print("a long text near the edge");
    drawing.line(-10, 50, 500, 50);
    drawing.box(0, 0, 120, 100);
    EXPECT_EQ(drawing.marks().size(), 1u);
}

TEST_F(Drawings, ABoxOverTheStartOfATextKeepsIt) {
    drawing.textX = 10;
    drawing.textY = 10;
    drawing.print("98.5");
    drawing.box(8, 8, 14, 60);
    EXPECT_EQ(drawing.marks().size(), 2u);
}

TEST_F(Drawings, ATextPrintedOverItselfStandsThereOnce) {
    drawing.textX = 4;
    drawing.textY = 6;
    drawing.print("dB");
    const auto rebuilt = drawing.rebuilt();
    drawing.print("dB");
    EXPECT_EQ(drawing.marks().size(), 1u);
    EXPECT_GT(drawing.rebuilt(), rebuilt);
    drawing.bold = true;
    drawing.print("dB");
    drawing.print("Hz");
    EXPECT_EQ(drawing.marks().size(), 3u);
}

TEST_F(Drawings, ACountOfFiveFiguresIsGoneUnderABoxOfThreeAndAHalfLines) {
    drawing.print("32767");
    const float line = drawing.fontPoints * 20 / drawing.unit();
    drawing.box(0, 0, 3.65f * line, 2 * line);
    EXPECT_EQ(drawing.marks().size(), 1u);
}

TEST_F(Drawings, AnHourOfRedrawsDoesNotGrow) {
    auto redraw = [&](int frame) {
        drawing.foreground = kBlack;
        drawing.box(0, 0, drawing.outerWidth(), drawing.outerHeight());
        for (int i = 0; i < 10; ++i) {
            const auto x = static_cast<float>(12 * i);
            drawing.box(x, static_cast<float>((frame + i) % 90), x + 10, 100);
            drawing.textX = x;
            drawing.textY = 90;
            drawing.print("1025");
        }
    };
    redraw(0);
    const auto marks = drawing.marks().size();
    EXPECT_EQ(marks, 21u);
    for (int frame = 1; frame < 4 * 3600; ++frame) redraw(frame);
    EXPECT_EQ(drawing.marks().size(), marks);
}

}  // namespace
}  // namespace display::test
