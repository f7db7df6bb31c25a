// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/class1.h"

#include <algorithm>
#include <cstdlib>

#include "core/numbers.h"

namespace hmonitor {

namespace {

/// The units of a fine canvas in one unit of a small canvas.
constexpr float kCoarse = 17.f;
constexpr float kBandWidthMhz = 20.f;
/// Every how many columns a tick is bold.
constexpr int kHeavyEvery = 20;

}  // namespace

void Class1::ink(const SmallText& colour) {
    Canvas->foreground = display::Colour{static_cast<std::uint32_t>(toWhole(valueOf(colour)))};
}

void Class1::GraphInit() {
    takeGeometry();
    GraphClean();
}

void Class1::takeGeometry() {
    const float height = Canvas->scaleHeight() - TopMargin - BottomMargin;
    const float width = Canvas->scaleWidth() - BarGap - LeftMargin;
    YPixels = toWhole(height / static_cast<float>(YUnits));
    XPixels = toWhole(width / static_cast<float>(XColumns));
}

display::Place Class1::topOfBar(int x, Int16 y) const {
    const int rows = std::min(std::abs(int{y}), int{YUnits});
    const int twice = (2 * x - 1) * XPixels + BarGap + 2 * LeftMargin;
    return {static_cast<float>(twice) / 2, static_cast<float>(YPixels * rows + TopMargin)};
}

display::Place Class1::middleOfCell(int x, int y) const {
    return {static_cast<float>(LeftMargin + XPixels * x) + static_cast<float>(XPixels) / 2,
            static_cast<float>(TopMargin + YPixels * y) + static_cast<float>(YPixels) / 2};
}

void Class1::GraphClean() {
    fillBack();
    GraphRepaint();
    ink(TextColor);
    switch (GraphKind) {
        case Kind::Bare:
            break;
        case Kind::Offset:
            labelOffset();
            break;
        case Kind::Band:
            labelBand();
            break;
        case Kind::SmallBand:
            labelSmallBand();
            break;
    }
    ink(TraceColor);
}

void Class1::fillBack() {
    ink(BackColor);
    Canvas->box(0, 0, Canvas->outerWidth(), Canvas->outerHeight());
}

void Class1::GraphRepaint() {
    constexpr int kOffsetBands = 10;
    constexpr int kBandBands = 14;
    ink(GridColor);
    const auto left = static_cast<float>(LeftMargin);
    switch (GraphKind) {
        case Kind::Bare:
            break;
        case Kind::Offset:
            drawBands(kOffsetBands, left - 50, Canvas->outerWidth(), 6, 8);
            break;
        case Kind::Band:
            drawBands(kBandBands, left - 50, Canvas->outerWidth(), 6, 8);
            drawTicks();
            break;
        case Kind::SmallBand:
            drawBands(kBandBands, left - 50 / kCoarse, Canvas->scaleWidth(), 6 / kCoarse,
                      8 / kCoarse);
            drawSmallTicks();
            break;
    }
}

/// A line every five rows; every second one is a band, so that steps of ten rows stand out.
void Class1::drawBands(int count, float left, float right, float below, float above) {
    for (int i = 0; i <= count; ++i) {
        const auto y = static_cast<float>(TopMargin + 5 * i * YPixels);
        if (i % 2 == 0) {
            Canvas->box(left, y + below, right, y - above);
        } else {
            Canvas->line(left, y, right, y);
        }
    }
}

/// A tick each 100 kHz.
int Class1::tickStep() const {
    return loopStep(0.1f / (kBandWidthMhz / static_cast<float>(XColumns)));
}

void Class1::drawTicks() {
    // The ticks stand at a fixed place, whatever the left margin is.
    constexpr int kFirst = 300;
    const auto top = static_cast<float>(YPixels * YUnits + TopMargin - 10);
    for (int i = 0; i <= XColumns; i += tickStep()) {
        const auto x = static_cast<float>(kFirst + i * XPixels);
        if (i % kHeavyEvery == 0) {
            Canvas->box(x, top, x + 14, top + 70);
        } else {
            Canvas->line(x, top, x, top + 60);
        }
    }
}

void Class1::drawSmallTicks() {
    constexpr int kFirst = 23;
    const auto top = static_cast<float>(YPixels * YUnits + TopMargin);
    for (int i = 0; i <= XColumns; i += tickStep()) {
        const auto x = static_cast<float>(kFirst + i * XPixels);
        if (i % kHeavyEvery == 0) {
            Canvas->box(x, top, x, top + 5);
        } else {
            Canvas->line(x, top, x, top + 4);
        }
    }
}

void Class1::GraphLine(Int16 x, Int16& y) {
    if (GraphKind == Kind::Offset && CenterColumn == x - 1) Canvas->foreground = display::kRed;
    y = std::min(std::abs(int{y}), int{YUnits});
    const Int16 left = Int16(Int16((x - 1) * XPixels) + BarGap) + LeftMargin;
    const Int16 right = Int16(XPixels * x) + LeftMargin;
    const Int16 top = Int16(YPixels * y) + TopMargin;
    Canvas->box(static_cast<float>(left), static_cast<float>(top), static_cast<float>(right),
                Canvas->outerHeight() - static_cast<float>(BottomMargin));
    ink(TraceColor);
}

void Class1::GraphPixel(Int16 x, Int16 y, std::int32_t color) {
    Canvas->foreground = display::Colour{static_cast<std::uint32_t>(color)};
    const display::CellGrid grid{static_cast<float>(LeftMargin),
                                 static_cast<float>(TopMargin),
                                 static_cast<float>(XPixels),
                                 static_cast<float>(YPixels),
                                 XColumns + 1,
                                 YUnits};
    Canvas->cell(grid, x, y);
}

}  // namespace hmonitor
