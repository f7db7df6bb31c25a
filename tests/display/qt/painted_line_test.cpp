// SPDX-License-Identifier: GPL-3.0-or-later
// Lines that a panel moves in every frame, read back from their pixels.
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdlib>

#include "display/qt/painting/painted.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {
namespace {

constexpr qreal kPaintedScale = 0.1;

class NeedleLook : public QtBench, public testing::WithParamInterface<double> {
 protected:
    NeedleLook() {
        sample->load();
        needle.container = nullptr;
        needle.stroke = Stroke::Round;
        needle.colour = kRed;
        needle.thickness = 3;
    }

    QImage empty() const {
        QImage image((QSizeF(300, 200) * GetParam()).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(GetParam());
        image.fill(Qt::black);
        return image;
    }

    QImage shown() {
        const auto painted = paintedLine(needle);
        painted->prepare(Scale(kPaintedScale, GetParam()));
        QImage image = empty();
        QPainter painter(&image);
        painted->paint(painter);
        return image;
    }

    QImage wanted() const {
        QImage image = empty();
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(
            QPen(Qt::red, needle.thickness * 15 * kPaintedScale, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(needle.x1, needle.y1) * kPaintedScale,
                         QPointF(needle.x2, needle.y2) * kPaintedScale);
        return image;
    }

    Line& needle = sample->Line1;
};

TEST_P(NeedleLook, RoundStroke_LooksAsThePainterRoundsIt) {
    for (const float x : {300.f, 777.f, 1503.f, 1900.f, 2710.f}) {
        needle.from(1500, 1800);
        needle.to(x, 333);
        const QImage ours = shown(), painters = wanted();
        int different = 0, lit = 0;
        for (int y = 0; y < ours.height(); ++y) {
            for (int column = 0; column < ours.width(); ++column) {
                const int red = qRed(ours.pixel(column, y));
                const int away = std::abs(red - qRed(painters.pixel(column, y)));
                lit += red > 0;
                different += away > 24;
                EXPECT_LE(away, 90) << "to " << x << " at " << column << ", " << y;
            }
        }
        EXPECT_GT(lit, 500);
        // A few pixels differ where the round ends meet the stroke.
        EXPECT_LE(different, 12) << "to " << x;
    }
}

TEST_P(NeedleLook, RoundStroke_TouchesNothingOutsideItsReach) {
    needle.from(1500, 1800);
    needle.to(777, 333);
    const auto painted = paintedLine(needle);
    painted->prepare(Scale(kPaintedScale, GetParam()));
    const QRectF reach = painted->reach();
    const QImage image = shown();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (reach.contains(QPointF(x + 0.5, y + 0.5) / GetParam())) continue;
            ASSERT_EQ(qRed(image.pixel(x, y)), 0) << x << ", " << y;
        }
    }
}

TEST_P(NeedleLook, RoundStrokeOnPaper_HasThePapersOwnPixels) {
    needle.from(1500, 1800);
    needle.to(777, 333);
    const auto painted = paintedLine(needle);
    painted->prepare(Scale(kPaintedScale, GetParam()));
    QImage paper(1200, 800, QImage::Format_RGB32), wanted(1200, 800, QImage::Format_RGB32);
    for (QImage* sheet : {&paper, &wanted}) {
        sheet->fill(Qt::black);
        QPainter painter(sheet);
        painter.scale(4, 4);
        if (sheet == &paper) {
            painted->paint(painter);
        } else {
            painter.setRenderHint(QPainter::Antialiasing, true);
            painter.setPen(QPen(Qt::red, 4.5, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(QPointF(150, 180), QPointF(777, 333) * kPaintedScale);
        }
    }
    EXPECT_EQ(paper, wanted);
}

INSTANTIATE_TEST_SUITE_P(AtEachRatio, NeedleLook, testing::Values(1, 1.25, 1.5, 2));

}  // namespace
}  // namespace display::qt
