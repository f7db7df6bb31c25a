// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

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

TEST_F(Drawings, ACopyStaysAsItIs) {
    drawing.foreground = kRed;
    drawing.box(0, 0, 50, 50);
    const CellGrid grid{10, 10, 2, 2, 20, 20};
    drawing.cell(grid, 3, 3);
    SampleForm other(desktop, "Other");
    other.show();
    Drawing& copy = other.PictureBox1.drawing;
    copy.scale(9, 0);
    copy.foreground = kGreen;
    copy.print("gone");
    const auto revision = other.PictureBox1.revision();
    const auto rebuilt = copy.rebuilt();
    copy.take(drawing);
    EXPECT_GT(other.PictureBox1.revision(), revision);
    EXPECT_GT(copy.rebuilt(), rebuilt);
    EXPECT_EQ(copy.unit(), drawing.unit());
    EXPECT_EQ(copy.scaleWidth(), drawing.scaleWidth());
    ASSERT_EQ(copy.marks().size(), 2u);
    EXPECT_EQ(copy.marks()[0].colour, kRed);
    const auto cells = copy.marks()[1].map->cells;
    EXPECT_EQ(cells, drawing.marks()[1].map->cells);
    // The copy does not share the original's map and marks.
    drawing.cell(grid, 4, 4);
    EXPECT_EQ(copy.marks()[1].map->cells, cells);
    drawing.clear();
    EXPECT_EQ(copy.marks().size(), 2u);
    // The copy can be drawn on like any other drawing.
    copy.box(0, 0, copy.outerWidth(), copy.outerHeight());
    EXPECT_EQ(copy.marks().size(), 1u);
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

TEST_F(Drawings, AStrokeDrawnOverItselfStandsThereOnce) {
    drawing.line(0, 10, 120, 10);
    drawing.line(0, 10, 120, 10);
    EXPECT_EQ(drawing.marks().size(), 1u);
    drawing.lineWidth = 2;
    drawing.line(0, 10, 120, 10);
    drawing.foreground = kRed;
    drawing.line(0, 10, 120, 10);
    EXPECT_EQ(drawing.marks().size(), 3u);
}

TEST_F(Drawings, AWholeWipeLeavesNothingButItself) {
    for (int i = 0; i < 500; ++i) drawing.line(0, static_cast<float>(i) / 5, 120, 50);
    drawing.textX = -40;
    drawing.print("beyond the edge");
    drawing.cell(CellGrid{200, 200, 1, 1, 5, 5}, 0, 0);
    const auto rebuilt = drawing.rebuilt();
    drawing.box(0, 0, 120, 100);
    EXPECT_EQ(drawing.marks().size(), 1u);
    EXPECT_GT(drawing.rebuilt(), rebuilt);
}

/// A map of 100 by 50 cells over most of the canvas.
constexpr CellGrid kMap{10, 20, 1, 1.5f, 100, 50};

std::uint32_t cellAt(const Mark& mark, int column, int row) {
    return mark.map->cells[static_cast<std::size_t>(row * mark.map->grid.columns + column)];
}

TEST_F(Drawings, TheCellsOfAMapAreOneMark) {
    for (int row = 0; row < kMap.rows; ++row) {
        for (int column = 0; column < kMap.columns; ++column) {
            drawing.foreground = Colour{static_cast<std::uint32_t>(0x010000 * row + column)};
            drawing.cell(kMap, column, row);
        }
    }
    ASSERT_EQ(drawing.marks().size(), 1u);
    const Mark& map = drawing.marks()[0];
    EXPECT_EQ(map.kind, Mark::Kind::Cells);
    EXPECT_EQ(map.x1, 10);
    EXPECT_EQ(map.x2, 110);
    EXPECT_EQ(map.y1, 20);
    EXPECT_EQ(map.y2, 95);
    EXPECT_EQ(cellAt(map, 7, 9), 0xff070009u) << "red first: what a screen takes";
}

TEST_F(Drawings, AMapThatIsShrunkShowsTheHeaviestCellOfEachPlaceAndOfEqualsTheLast) {
    constexpr CellGrid kRow{0, 0, 1, 1, 7, 2};
    CellMap map(kRow);
    constexpr std::uint32_t kRedPixel = 0xffff0000, kGreenPixel = 0xff00ff00,
                            kCyanPixel = 0xff00ffff;
    map.draw(0, 0, kRed, 2);
    map.draw(1, 0, kGreen, 1);
    map.draw(2, 0, kCyan, 2);
    map.draw(6, 1, kGreen, -5);
    // Columns 0 to 2 are one place, 3 and 4 the second, 5 and 6 the third.
    EXPECT_THAT(map.shrunk(3, 1), testing::ElementsAre(kCyanPixel, 0, kGreenPixel));
    EXPECT_THAT(map.shrunk(1, 2), testing::ElementsAre(kCyanPixel, kGreenPixel));
    map.draw(0, 0, kRed, 3);
    EXPECT_THAT(map.shrunk(3, 1), testing::ElementsAre(kRedPixel, 0, kGreenPixel));
    EXPECT_EQ(map.shrunk(7, 2), map.cells);
}

TEST_F(Drawings, ACellOutsideItsMapIsABoxLikeOnAnyCanvas) {
    drawing.cell(kMap, 100, 3);
    drawing.cell(kMap, -1, 3);
    drawing.cell(CellGrid{10, 20, 0, 1, 100, 50}, 1, 1);
    ASSERT_EQ(drawing.marks().size(), 3u);
    const Mark& box = drawing.marks()[0];
    EXPECT_EQ(box.kind, Mark::Kind::Filled);
    EXPECT_EQ(box.x1, 110);
    EXPECT_EQ(box.x2, 110);
    EXPECT_FLOAT_EQ(box.y1, 24.5f);
    EXPECT_FLOAT_EQ(box.y2, 20 + 1.5f * 3.8f);
}

TEST_F(Drawings, EachCellRaisesTheNumberOfItsMap) {
    drawing.cell(kMap, 1, 1);
    const auto number = drawing.marks()[0].number;
    const auto revision = form.PictureBox1.revision();
    drawing.cell(kMap, 2, 1);
    EXPECT_GT(drawing.marks()[0].number, number);
    EXPECT_GT(form.PictureBox1.revision(), revision);
}

TEST_F(Drawings, ACellGoesIntoItsMapUnlessSomethingLaterLiesOverIt) {
    drawing.cell(kMap, 1, 1);
    drawing.box(60, 60, 70, 70);
    const auto rebuilt = drawing.rebuilt();
    drawing.cell(kMap, 2, 1);
    EXPECT_EQ(drawing.marks().size(), 2u);
    EXPECT_GT(drawing.rebuilt(), rebuilt) << "the screen has to look below the end";
    drawing.cell(kMap, 55, 30);
    EXPECT_EQ(drawing.marks().size(), 3u) << "above the box";
}

TEST_F(Drawings, ABoxTakesTheCellsThatItCoversAndAnEmptyMapGoes) {
    drawing.cell(kMap, 1, 1);
    drawing.cell(kMap, 55, 30);
    drawing.box(60, 60, 70, 70);
    ASSERT_EQ(drawing.marks().size(), 2u);
    EXPECT_NE(cellAt(drawing.marks()[0], 1, 1), 0u);
    EXPECT_EQ(cellAt(drawing.marks()[0], 55, 30), 0u);
    drawing.box(10, 20, 14, 24);
    EXPECT_EQ(drawing.marks().size(), 2u);
    EXPECT_EQ(drawing.marks()[0].kind, Mark::Kind::Filled);
}

TEST_F(Drawings, AnHourOfSmallRedrawsDoesNotGrow) {
    const auto redraw = [&](int frame) {
        // A count, the grid, some cells of the map over a wiped place, and a bar of changing
        // height.
        drawing.foreground = kWhite;
        drawing.box(80, 0, 120, 20);
        drawing.foreground = kBlack;
        drawing.textX = 80;
        drawing.textY = 0;
        drawing.print(std::to_string(frame % 1000));
        for (int i = 0; i < 5; ++i) {
            const auto y = static_cast<float>(20 * i);
            drawing.line(0, y, 120, y);
        }
        drawing.box(30, 40, 50, 60);
        for (int i = 0; i < 20; ++i) drawing.cell(kMap, 25 + (frame + i) % 10, 20 + i % 5);
        drawing.box(2, static_cast<float>(11 + frame * 37 % 20), 6, 100);
    };
    std::size_t most = 0, later = 0;
    for (int frame = 0; frame < 200; ++frame) {
        redraw(frame);
        most = std::max(most, drawing.marks().size());
    }
    for (int frame = 200; frame < 4 * 3600; ++frame) {
        redraw(frame);
        later = std::max(later, drawing.marks().size());
    }
    EXPECT_LE(later, most);
    EXPECT_LE(most, 60u);
}

}  // namespace
}  // namespace display::test
