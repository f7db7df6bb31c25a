// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <string>

#include "core/numbers.h"
#include "program/language.h"
#include "program/station_line.h"
#include "spectrum/form_d1a.h"

namespace hmonitor {

namespace {

constexpr display::Colour kTraceColour{1114111};
/// The fill up to 75 kHz, where full modulation ends, and the fill beyond it.
constexpr display::Colour kNarrowColour{16711680};
constexpr display::Colour kWideColour{12648384};
constexpr display::Colour kGridColour{8421504};

constexpr int kColumns = 150;
constexpr int kColumnPitch = 25;
/// The position of 0 kHz and 100 percent.
constexpr float kLeft = 400;
constexpr float kTop = 400;
/// The height of the line of text above the graph.
constexpr float kHead = 300;

}  // namespace

void FormD1a::takeGeometry() {
    const display::Drawing& canvas = Picture1.drawing;
    YPixels = toWhole((canvas.outerHeight() - 900) / 100);
    XPixels = (canvas.outerWidth() - kLeft) / kColumns;
    BarHalf = toWhole(XPixels / 2);
    BaseY = (YPixels + 5) * 100;
}

void FormD1a::printAt(float x, float y, std::string_view text) {
    Picture1.drawing.textX = x;
    Picture1.drawing.textY = y;
    Picture1.drawing.print(text);
}

void FormD1a::GraphClean() {
    display::Drawing& canvas = Picture1.drawing;
    const float foot = canvas.outerHeight();
    canvas.foreground = display::kWhite;
    canvas.box(0, kHead, canvas.outerWidth(), foot);
    canvas.foreground = display::kBlack;
    for (int i = 0; i <= 100; i += 20) {
        printAt(40, kHead + static_cast<float>(i * YPixels), shortText(100 - i));
    }
    for (int i = 0; i <= kColumns; i += kColumnPitch) {
        // The last label keeps clear of the right edge.
        const float start = i == kColumns ? 130 : 320;
        printAt(start + static_cast<float>(i) * XPixels, static_cast<float>(BaseY), shortText(i));
    }
    canvas.bold = true;
    printAt(9200, foot - 180, "BW=+/-Khz");
    printAt(40, 60, "%Mod");
    canvas.bold = false;
}

void FormD1a::GraphRepaint() {
    constexpr int kRows = 10;
    display::Drawing& canvas = Picture1.drawing;
    canvas.foreground = kGridColour;
    for (int i = 0; i <= kRows; ++i) {
        const bool last = i == kRows;
        const float y = kTop + static_cast<float>(10 * i * YPixels) + (last ? 30 : 0);
        canvas.lineWidth = i % 2 == 0 || last ? 2 : 1;
        canvas.line(340, y, canvas.outerWidth(), y);
    }
    canvas.lineWidth = 1;
    for (int i = 0; i <= kColumns; i += kColumnPitch) {
        const float start = i == kColumns ? 390 : kLeft;
        const float x = start + static_cast<float>(i) * XPixels;
        canvas.line(x, kTop, x, static_cast<float>(BaseY - 70));
    }
}

/// Fills below the curve from its last point to a new one. Where the curve is steep, two boxes
/// would stick out beside the line that covers their upper ends; there narrow boxes follow the
/// line, none higher than it.
void FormD1a::fillUnder(float x, float row) {
    constexpr float kFoot = 500;
    constexpr float kCovered = 15;  ///< by half the line's thickness
    constexpr float kNarrow = 8;
    display::Drawing& canvas = Picture1.drawing;
    const float foot = canvas.outerHeight() - kFoot;
    const auto lastX = static_cast<float>(LastX);
    const auto lastY = static_cast<float>(LastY);
    const float rise = row - lastY;
    if (std::fabs(rise) <= kCovered) {
        const float before = x - static_cast<float>(BarHalf);
        canvas.box(lastX, lastY, before, foot);
        canvas.box(before, row, x, foot);
        return;
    }
    const float run = x - lastX;
    const float pieces = std::ceil(std::min(std::fabs(rise) / kCovered, run / kNarrow));
    for (float piece = 0; piece < pieces; ++piece) {
        const float from = piece / pieces, to = (piece + 1) / pieces;
        const float reach = lastY + rise * (rise > 0 ? to : from);
        canvas.box(lastX + run * from, reach, lastX + run * to, foot);
    }
}

float FormD1a::rowOf(float fromTop) const {
    return static_cast<float>(YPixels) * fromTop + kTop;
}

void FormD1a::GraphLine(Int16 x, float& y) {
    constexpr int kFirstWide = 76;
    if (y > 99) y = 99;
    y = 100 - y;
    const float row = rowOf(y);
    if (x == 0) {
        LastX = static_cast<int>(kLeft);
    } else {
        display::Drawing& canvas = Picture1.drawing;
        const float here = kLeft + static_cast<float>(x) * XPixels;
        canvas.lineWidth = 1;
        canvas.foreground = x < kFirstWide ? kNarrowColour : kWideColour;
        fillUnder(here, row);
        canvas.lineWidth = 2;
        canvas.foreground = kTraceColour;
        canvas.line(static_cast<float>(LastX), static_cast<float>(LastY), here, row);
        LastX = toWhole(here);
    }
    LastY = toWhole(row);
}

void FormD1a::Grafico(Int16 x, float y) {
    const float step = std::fabs(rampFrom_ - y) / kColumnPitch;
    const float towards = y < rampFrom_ ? -step : step;
    // The very first ramp leaves out its first column, which the start of the curve has drawn.
    for (int k = x == kColumnPitch ? 2 : 1; k <= kColumnPitch; ++k) {
        float here = rampFrom_ + static_cast<float>(k) * towards;
        GraphLine(x - kColumnPitch + k, here);
    }
    rampFrom_ = y;
}

void FormD1a::GraficoMuestras(Int16 count) {
    display::Drawing& canvas = Picture1.drawing;
    canvas.foreground = display::kWhite;
    canvas.box(5500, kHead, 6100, 0);
    canvas.foreground = display::kBlack;
    printAt(5500, 20, shortText(int{count}));
}

void FormD1a::announceStart() {
    display::Drawing& canvas = Picture1.drawing;
    canvas.foreground = display::kWhite;
    canvas.box(800, kHead, canvas.outerWidth(), 0);
    canvas.foreground = display::kBlack;
    printAt(800, 20, SmallText("Start Time: ").append(timeOfDay()));
    printAt(4740, 20, "Samples: ");
    printAt(5500, 20, "0");
}

SmallText FormD1a::timeOfDay() const {
    const display::Date now = program.desktop.today();
    SmallText text = mask("00", now.hour);
    return text.append(':')
        .append(mask("00", now.minute))
        .append(':')
        .append(mask("00", now.second));
}

void FormD1a::drawCurve() {
    PeakPercent.front() = 100;
    PeakPercent.back() = 0;
    BandwidthCurve::Points points = BandwidthCurve::through(PeakPercent);
    shown_.clear();
    for (int i = 0; i * kColumnPitch <= kColumns; ++i)
        shown_.push_back({i * kColumnPitch, PeakPercent[static_cast<std::size_t>(i)]});
    GraphClean();
    for (int x = 0; x <= BandwidthCurve::kLastKhz; ++x) {
        GraphLine(x, points[static_cast<std::size_t>(x)]);
    }
    GraphRepaint();
}

void FormD1a::drawTestPattern() {
    shown_ = {{0, 100}, {25, 80}, {50, 80}, {75, 40}, {100, 20}, {125, 20}, {150, 80}};
    GraphClean();
    for (const Shown& corner : shown_) {
        float percent = corner.percent;
        GraphLine(corner.kHz, percent);
    }
    GraphRepaint();
}

display::NumberTable FormD1a::numbersShown() const {
    display::NumberTable table = tableOfStation(
        program, wordsIn(language, {"Ancho de banda de modulación", "Modulation Bandwidth"}));
    table.columns = {{std::string(wordsIn(language, {"Desvío", "Offset"})), "kHz"},
                     {std::string(wordsIn(language, {"Modulación", "Modulation"})), "%"}};
    for (const Shown& point : shown_) {
        table.spots.push_back({table.rows.size(), 1,
                               kLeft + static_cast<float>(point.kHz) * XPixels,
                               rowOf(100 - std::min(point.percent, 99.f))});
        table.rows.push_back({wholeText(point.kHz).str(), shortText(point.percent).str()});
    }
    return table;
}

}  // namespace hmonitor
