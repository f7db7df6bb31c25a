// SPDX-License-Identifier: GPL-3.0-or-later
// The marks of a drawing as pixels.
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/painted.h"
#include "tests/display/qt/pixel_difference.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {
namespace {

constexpr qreal kPixelsPerTwip = 0.1;

class DrawingPixels : public QtBench, public testing::WithParamInterface<double> {
 protected:
    DrawingPixels() {
        sample->load();
        box.left = 0.f;
        box.top = 0.f;
        box.width = 4000.f;
        box.height = 3000.f;
        box.drawing.clear();
        box.drawing.scale(1, 0);
    }

    QImage shown(Painted& painted) const {
        const Scale scale(kPixelsPerTwip, GetParam());
        painted.prepare(scale);
        QImage image((QSizeF(400, 300) * GetParam()).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(GetParam());
        image.fill(Qt::darkCyan);
        QPainter painter(&image);
        painted.paint(painter);
        return image;
    }

    PictureBox& box = sample->PictureBox1;
};

/// Draws boxes, strokes and texts over one another; nothing covers the upper rows.
template <class After>
void drawManyOverEachOther(Drawing& drawing, After after) {
    auto pen = [&](Colour colour, int width) {
        drawing.foreground = colour;
        drawing.lineWidth = width;
    };
    pen(kWhite, 1);
    drawing.box(0, 300, 4000, 3000);
    after();
    for (int i = 0; i < 30; ++i) {
        const auto x = static_cast<float>(130 * i), y = static_cast<float>(i * 977 % 2600);
        pen(i % 2 ? kGreen : kRed, 1);
        drawing.box(x, y, x + 90, 2900);
        after();
        pen(kBlack, 1 + i % 3);
        drawing.line(x, y, x + 700, y - 400);
        after();
        drawing.line(x, y, x + 700, y);
        after();
        drawing.textX = x;
        drawing.textY = y - 100;
        drawing.print("10.7");
        after();
    }
}

TEST_P(DrawingPixels, MarksThatComeTogether_LieOverEachOtherAsMarksThatComeOneByOne) {
    const auto growing = paintedDrawing(box);
    QImage oneByOne;
    drawManyOverEachOther(box.drawing, [&] { oneByOne = shown(*growing); });
    const auto atOnce = paintedDrawing(box);
    EXPECT_EQ(shown(*atOnce), oneByOne);
}

TEST_P(DrawingPixels, Text_LooksAsThePainterSetsIt) {
    box.drawing.foreground = kWhite;
    box.drawing.box(0, 0, 4000, 3000);
    box.drawing.foreground = kBlack;
    box.drawing.fontPoints = 8;
    box.drawing.textX = 500;
    box.drawing.textY = 700;
    box.drawing.print("%Mod 102.5 \xc3\x81g");
    const auto painted = paintedDrawing(box);
    const QImage ours = shown(*painted);
    QImage wanted(ours.size(), QImage::Format_ARGB32_Premultiplied);
    wanted.setDevicePixelRatio(GetParam());
    wanted.fill(Qt::white);
    const Scale scale(kPixelsPerTwip, GetParam());
    const QFont font = Fonts::get().font(scale.px(160), Weight::Normal);
    QPainter painter(&wanted);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(scale.snapped(50), scale.snapped(70) + QFontMetricsF(font).ascent()),
                     QString::fromUtf8("%Mod 102.5 \xc3\x81g"));
    painter.end();
    EXPECT_LE(largestDifference(ours, wanted.convertToFormat(QImage::Format_RGB32)), 2);
    QImage empty(ours.size(), QImage::Format_RGB32);
    empty.fill(Qt::white);
    EXPECT_GT(largestDifference(ours, empty), 200);
}

TEST_P(DrawingPixels, TextOutsideEveryBox_LetsThroughWhatLiesBehind) {
    box.drawing.foreground = kBlack;
    box.drawing.textX = 500;
    box.drawing.textY = 700;
    box.drawing.print("8");
    const auto painted = paintedDrawing(box);
    const QImage image = shown(*painted);
    int untouched = 0, black = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            untouched += image.pixelColor(x, y) == QColor(Qt::darkCyan);
            black += qGray(image.pixel(x, y)) < 30;
        }
    }
    EXPECT_GT(black, 5);
    EXPECT_GT(untouched, image.width() * image.height() - 400 * GetParam() * GetParam());
}

Colour ofCell(int column, int row) {
    return Colour{static_cast<std::uint32_t>(0x400000 + 0x0400 * column + row)};
}

TEST_P(DrawingPixels, EachCellOfAMapStandsInItsPlaceInItsColour) {
    constexpr CellGrid kGrid{400, 300, 50, 40, 60, 50};
    const auto painted = paintedDrawing(box);
    for (int row = 0; row < kGrid.rows; ++row) {
        for (int column = 0; column < kGrid.columns; ++column) {
            // Holes in the map, through which the marks below show.
            if (column % 7 == 3) continue;
            box.drawing.foreground = ofCell(column, row);
            box.drawing.cell(kGrid, column, row);
        }
        if (row == 20) shown(*painted);
    }
    const QImage image = shown(*painted);
    for (int row = 0; row < kGrid.rows; ++row) {
        for (int column = 0; column < kGrid.columns; ++column) {
            const double pixel = kPixelsPerTwip * GetParam();
            const int x = static_cast<int>((kGrid.left + kGrid.pitchX * (column + 0.5)) * pixel);
            const int y = static_cast<int>((kGrid.top + kGrid.pitchY * (row + 0.5)) * pixel);
            const Colour colour = ofCell(column, row);
            ASSERT_EQ(image.pixelColor(x, y),
                      column % 7 == 3 ? QColor(Qt::darkCyan)
                                      : QColor(colour.red(), colour.green(), colour.blue()))
                << column << ", " << row;
        }
    }
}

TEST_P(DrawingPixels, ACellBelowALaterMarkChangesOnTheScreenToo) {
    constexpr CellGrid kGrid{400, 300, 100, 100, 10, 10};
    const auto painted = paintedDrawing(box);
    box.drawing.foreground = kRed;
    box.drawing.cell(kGrid, 1, 1);
    box.drawing.foreground = kWhite;
    box.drawing.box(900, 900, 1100, 1100);
    shown(*painted);
    box.drawing.foreground = kGreen;
    box.drawing.cell(kGrid, 1, 1);
    const QImage image = shown(*painted);
    const double pixel = kPixelsPerTwip * GetParam();
    EXPECT_EQ(image.pixelColor(static_cast<int>(550 * pixel), static_cast<int>(450 * pixel)),
              QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(static_cast<int>(1000 * pixel), static_cast<int>(1000 * pixel)),
              QColor(Qt::white));
}

/// As many columns as the map of a whole band, on less than half as many pixels.
constexpr CellGrid kSqueezed{200, 300, 4, 4, 801, 600};

TEST_P(DrawingPixels, NoCellOfAMapWithMoreCellsThanPixelsIsLost) {
    const auto painted = paintedDrawing(box);
    const auto columnOf = [](int i) { return 11 * i; };
    const auto rowOf = [](int i) { return 7 * i; };
    constexpr int kCells = 72;
    for (int i = 0; i < kCells; ++i) {
        box.drawing.foreground = ofCell(columnOf(i), rowOf(i));
        box.drawing.cell(kSqueezed, columnOf(i), rowOf(i));
    }
    const QImage image = shown(*painted);
    const auto placed = [](float from, float pitch, int cell) {
        return static_cast<int>((from + pitch * (static_cast<float>(cell) + 0.5f)) *
                                kPixelsPerTwip * GetParam());
    };
    for (int i = 0; i < kCells; ++i) {
        const Colour colour = ofCell(columnOf(i), rowOf(i));
        const QColor wanted(colour.red(), colour.green(), colour.blue());
        const int x = placed(kSqueezed.left, kSqueezed.pitchX, columnOf(i));
        const int y = placed(kSqueezed.top, kSqueezed.pitchY, rowOf(i));
        int found = 0;
        for (int j = 0; j < 9; ++j)
            found += image.pixelColor(x - 1 + j % 3, y - 1 + j / 3) == wanted;
        EXPECT_EQ(found, 1) << i;
    }
    int lit = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            lit += image.pixelColor(x, y) != QColor(Qt::darkCyan);
    }
    EXPECT_EQ(lit, kCells);
}

TEST_P(DrawingPixels, OfTheCellsInAPixelTheHeaviestIsShown) {
    const auto painted = paintedDrawing(box);
    box.drawing.cellWeight = 1;
    box.drawing.foreground = kRed;
    for (int i = 0; i <= 20; ++i) box.drawing.cell(kSqueezed, 40 * i, 300);
    box.drawing.cellWeight = 0;
    box.drawing.foreground = kBlack;
    for (int column = 0; column < kSqueezed.columns; ++column) {
        if (column % 40 != 0) box.drawing.cell(kSqueezed, column, 300);
    }
    const QImage image = shown(*painted);
    int red = 0, black = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            red += image.pixelColor(x, y) == QColor(Qt::red);
            black += image.pixelColor(x, y) == QColor(Qt::black);
        }
    }
    EXPECT_EQ(red, 21);
    EXPECT_EQ(red + black, std::lround(801 * 4 * kPixelsPerTwip * GetParam()));
}

INSTANTIATE_TEST_SUITE_P(AtEachRatio, DrawingPixels, testing::Values(1, 1.25, 1.5, 2));

}  // namespace
}  // namespace display::qt
