// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"
#include "spectrum/class1.h"

namespace hmonitor {

namespace {

constexpr float kCoarseUnit = 17.f;
constexpr int kRowsPerLabel = 10;

}  // namespace

void Class1::printAt(float x, float y, std::string_view text) {
    Canvas->textX = x;
    Canvas->textY = y;
    Canvas->print(text);
}

void Class1::drawUprights(float top, float bottom, float right) {
    const auto left = static_cast<float>(LeftMargin);
    Canvas->line(left, top, left, bottom);
    Canvas->line(right, top, right, bottom);
}

void Class1::labelOffset() {
    const float height = Canvas->outerHeight();
    labelOffsetLevels();
    drawUprights(static_cast<float>(TopMargin), height - static_cast<float>(BottomMargin),
                 Canvas->outerWidth() - 10);
    Canvas->bold = true;
    printAt(8800, height - 180, "Khz");
    printAt(40, 60, "dB");
    Canvas->bold = false;
    labelOffsetColumns();
}

void Class1::labelOffsetLevels() {
    constexpr int kLast = 6;
    for (int i = 0; i <= kLast; ++i) {
        // The lowest label is lifted a little more, clear of the frequencies below it.
        const int lift = i == kLast ? 100 : 90;
        const int level = -kRowsPerLabel * i;
        const SmallText text = level == 0 ? SmallText("  0") : shortText(level);
        printAt(10, static_cast<float>(TopMargin + kRowsPerLabel * i * YPixels - lift), text);
    }
}

void Class1::labelOffsetColumns() {
    const auto y = static_cast<float>(YPixels * YUnits + 40 + TopMargin);
    CenterColumn = XColumns / 2;
    bool labelled = true;
    for (int i = 0; i < XColumns; ++i) {
        const auto x = static_cast<float>(350 + i * XPixels);
        if (i == CenterColumn) {
            // The carrier always has a label; the pattern of the others continues across it.
            Canvas->foreground = display::kRed;
            printAt(x, y, "  F0");
            ink(TextColor);
        } else if (labelled || SkipLabels == 0) {
            const Int16 offset = (i - CenterColumn) * XStep;
            printAt(x, y, SmallText(" ").append(longText(int{offset})));
            labelled = false;
        } else {
            labelled = true;
        }
    }
}

void Class1::labelBand() {
    const float height = Canvas->outerHeight();
    labelBandLevels(90, 100);
    drawUprights(static_cast<float>(TopMargin), height - static_cast<float>(BottomMargin),
                 Canvas->outerWidth() - 10);
    Canvas->bold = true;
    printAt(8800, height - 180, "MHz");
    printAt(40, 80, "dB/uV");
    Canvas->bold = false;
    labelBandColumns(100, static_cast<float>(YPixels * YUnits + 70 + TopMargin));
}

void Class1::labelSmallBand() {
    const float height = Canvas->scaleHeight();
    Canvas->fontName = "MS Sans Serif";
    Canvas->fontPoints = 8.25f;
    labelBandLevels(7, 100 / kCoarseUnit);
    drawUprights(static_cast<float>(TopMargin) - 3, height - static_cast<float>(BottomMargin) + 12,
                 Canvas->scaleWidth() - 5);
    Canvas->bold = true;
    printAt(8800 / kCoarseUnit, height - 15, "MHz");
    printAt(40 / kCoarseUnit, 80 / kCoarseUnit, "dB/uV");
    Canvas->bold = false;
    Canvas->fontName = "MS Serif";
    Canvas->fontPoints = 7;
    labelBandColumns(12, static_cast<float>(YPixels * YUnits + 6 + TopMargin));
}

void Class1::labelBandLevels(float lift, float lastLift) {
    constexpr int kLast = 8;
    constexpr int kTop = 100;
    for (int i = 0; i <= kLast; ++i) {
        // Only two digits and a blank fit beside the frame: the top label is "00 ".
        SmallText text = mask("#00", kTop - kRowsPerLabel * i).append(' ');
        const std::string_view cut = text.view().substr(text.size() - 3);
        const auto row = static_cast<float>(TopMargin + kRowsPerLabel * i * YPixels);
        printAt(0, row - (i == kLast ? lastLift : lift), cut);
    }
}

/// A label each 500 kHz from 88 MHz on, whatever part of the band was measured.
void Class1::labelBandColumns(float left, float y) {
    MhzPerColumn = 20.f / static_cast<float>(XColumns);
    const int step = loopStep(0.5f / MhzPerColumn);
    for (int i = 0; i <= XColumns; i += step) {
        const float mhz = 88.f + MhzPerColumn * static_cast<float>(i);
        printAt(left + static_cast<float>(i * XPixels), y, mask("#00.0", mhz).append(' '));
    }
}

}  // namespace hmonitor
