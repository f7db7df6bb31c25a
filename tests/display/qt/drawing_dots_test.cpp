// SPDX-License-Identifier: GPL-3.0-or-later
// What the marks of a drawing look like as dots.
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "display/qt/faces.h"
#include "display/qt/painted.h"
#include "display/qt/slanting_stroke.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {
namespace {

constexpr qreal kPixelsPerTwip = 0.1;

/// The largest difference of a channel.
int largestDotDifference(const QImage& a, const QImage& b) {
    int largest = a.size() == b.size() ? 0 : 255;
    for (int y = 0; y < a.height() && largest < 255; ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)),
                                std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

class DrawingDots : public QtBench, public testing::WithParamInterface<double> {
 protected:
    DrawingDots() {
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

/// Boxes, strokes and texts, each over some of those before it; nothing covers the upper rows.
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

TEST_P(DrawingDots, MarksThatComeTogether_LieOverEachOtherAsMarksThatComeOneByOne) {
    const auto growing = paintedDrawing(box);
    QImage oneByOne;
    drawManyOverEachOther(box.drawing, [&] { oneByOne = shown(*growing); });
    const auto atOnce = paintedDrawing(box);
    EXPECT_EQ(shown(*atOnce), oneByOne);
}

TEST_P(DrawingDots, Text_LooksAsThePainterSetsIt) {
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
    const QFont font = Faces::get().font(scale.px(160), Weight::Normal);
    QPainter painter(&wanted);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(scale.snapped(50), scale.snapped(70) + QFontMetricsF(font).ascent()),
                     QString::fromUtf8("%Mod 102.5 \xc3\x81g"));
    painter.end();
    EXPECT_LE(largestDotDifference(ours, wanted.convertToFormat(QImage::Format_RGB32)), 2);
    QImage empty(ours.size(), QImage::Format_RGB32);
    empty.fill(Qt::white);
    EXPECT_GT(largestDotDifference(ours, empty), 200);
}

TEST_P(DrawingDots, TextOutsideEveryBox_LetsThroughWhatLiesBehind) {
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

INSTANTIATE_TEST_SUITE_P(AtEachRatio, DrawingDots, testing::Values(1, 1.25, 1.5, 2));

QImage strokeAlone(QPoint from, QPoint to, int width) {
    QImage image(100, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const SlantingStroke stroke(from, to, width);
    const DotRows rows(image);
    stroke.lay(rows, rows.all(), qRgb(0, 0, 0));
    return image;
}

/// How many dots' worth of black.
double ink(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) sum += 1 - qRed(image.pixel(x, y)) / 255.0;
    }
    return sum;
}

TEST(SlantingStrokes, HaveTheInkOfTheirLengthAndWidthAtEverySlant) {
    for (const int width : {1, 2, 3, 5}) {
        for (const QPoint to : {QPoint(57, 41), QPoint(80, 41), QPoint(51, 70), QPoint(20, 60),
                                QPoint(49, 10), QPoint(10, 39)}) {
            const QPoint from(50, 40), far = to - from;
            const double length = std::hypot(far.x(), far.y()) + width;
            EXPECT_NEAR(ink(strokeAlone(from, to, width)), length * width, 0.02 * length * width)
                << width << " to " << to.x() << ", " << to.y();
        }
    }
}

TEST(SlantingStrokes, LookAsThePainterDrawsThem) {
    for (const int width : {2, 3, 5}) {
        for (const QPoint to : {QPoint(90, 71), QPoint(57, 44), QPoint(12, 60), QPoint(55, 5)}) {
            QImage wanted(100, 80, QImage::Format_ARGB32_Premultiplied);
            wanted.fill(Qt::white);
            QPainter painter(&wanted);
            painter.setRenderHint(QPainter::Antialiasing, true);
            painter.setPen(QPen(Qt::black, width));
            painter.drawLine(QPoint(50, 40), to);
            painter.end();
            EXPECT_LE(largestDotDifference(strokeAlone(QPoint(50, 40), to, width), wanted), 64)
                << width << " to " << to.x() << ", " << to.y();
        }
    }
}

TEST(SlantingStrokes, InPieces_EqualTheWhole) {
    QImage pieces(100, 80, QImage::Format_ARGB32_Premultiplied);
    pieces.fill(Qt::white);
    const SlantingStroke stroke(QPoint(3, 5), QPoint(95, 71), 3);
    const DotRows rows(pieces);
    for (int top = 0; top < 80; top += 7) {
        stroke.lay(rows, DotBox{0, top, 100, top + 7} & rows.all(), qRgb(0, 0, 0));
    }
    EXPECT_EQ(pieces, strokeAlone(QPoint(3, 5), QPoint(95, 71), 3));
}

TEST(SlantingStrokes, BeyondThePicture_TouchNothing) {
    QImage image(100, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const DotRows rows(image);
    SlantingStroke(QPoint(-50, -10), QPoint(-5, 90), 3).lay(rows, rows.all(), qRgb(0, 0, 0));
    SlantingStroke(QPoint(105, 3), QPoint(300, 90), 3).lay(rows, rows.all(), qRgb(0, 0, 0));
    EXPECT_EQ(ink(image), 0);
}

}  // namespace
}  // namespace display::qt
