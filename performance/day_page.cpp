// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/day_page.h"

#include "core/numbers.h"
#include "performance/day_series.h"

namespace hmonitor {

using display::PageDocument;
using display::PagePen;
using display::PenStyle;
using display::Weight;

namespace {

constexpr float kLeft = 550;
constexpr float kRight = 10200;
constexpr int kUpright = 22;
/// A quarter turn counterclockwise, in tenths of a degree.
constexpr int kQuarterTurn = 900;

constexpr const char* kHours =
    "0    1    2     3    4    5    6    7    8    9   10   11  12   13  14   15  16  17  18  19  "
    "20  21  22  23";

constexpr PagePen kFrame{display::kBlack, 12, PenStyle::Solid};
constexpr PagePen kGrid{display::Colour{0xb0b0b0}, 8, PenStyle::Solid};

struct Caption {
    const char* text;
    display::PagePoint at;
};

struct Band {
    float top, bottom;
    float lines[4];  ///< y of the horizontal lines, 0 for none
    Caption red, blue;
    const char* leftScale;
    const char* rightScale;  ///< null for none
};

constexpr Band kBands[] = {
    {900,
     4000,
     {1530, 2160, 2790, 3420},
     {"Modulation", {600, 400}},
     {"RF Power", {8500, 400}},
     "25   50     75    100     125    150",
     "0     1       2        3       4        5"},
    {4800,
     6800,
     {5800},
     {"Overmodulation/Min", {600, 4300}},
     {"Stereo Phase", {7900, 4300}},
     "0         150         300",
     "0          90         180"},
    {7600,
     9600,
     {8600},
     {"3 Sec. Silence", {600, 7100}},
     {"Inverted Phase", {7600, 7100}},
     "0           5           10",
     nullptr},
    {10400,
     12400,
     {11067, 11734},
     {"Left Level", {600, 9900}},
     {"Right Level", {8100, 9900}},
     "-10   -5       0       5",
     nullptr},
};

/// A figure in the foot of the page, and the line of the results file that it shows.
struct Result {
    Caption label;
    int line;
};
constexpr Result kResults[] = {
    {{"Field Intensity: ", {1500, 12700}}, 24},
    {{"19Khz Error: ", {7500, 12700}}, 16},
    {{"Pilot Level: ", {1500, 12900}}, 17},
    {{"Carrier Deviation: ", {7500, 12900}}, 23},
    {{"Noise L: ", {1500, 13100}}, 18},
    {{"Noise R: ", {7500, 13100}}, 19},
    {{"Channel Separation L-R: ", {1500, 13300}}, 20},
    {{"Channel Separation R-L: ", {7500, 13300}}, 21},
    {{"Harmonic Distortion: ", {7500, 13500}}, 22},
};

void drawHeading(PageDocument& document, const DayPage& page) {
    document.picture(page.logo, {550, -360}, page.logoWidth, page.logoHeight);
    document.font = {8, Weight::Normal};
    document.text({5300, 500}, " On-Air Performance Log:   " + page.stationName + " " +
                                   longText(valueOf(page.memoryFreq) / 10).str() + " mhz  " +
                                   longText(valueOf(page.day)).str());
}

void drawGrid(PageDocument& document, const Band& band) {
    document.pen = kGrid;
    for (int i = 1; i <= kUpright; ++i) {
        const auto x = static_cast<float>(pageX(i));
        document.line({x, band.top}, {x, band.bottom});
    }
    for (const float y : band.lines) {
        if (y > 0) document.line({kLeft, y}, {kRight, y});
    }
    document.pen = kFrame;
    document.rectangle({kLeft, band.top}, {kRight, band.bottom});
}

void drawCaption(PageDocument& document, const Caption& caption, display::Colour colour) {
    document.font = {16, Weight::Bold, display::Pitch::Proportional, colour};
    document.text(caption.at, caption.text);
}

void drawScales(PageDocument& document, const Band& band) {
    constexpr float kLeftScale = 200;
    constexpr float kRightScale = 10300;
    document.font = {12, Weight::Normal};
    document.text({kLeft, band.bottom}, kHours);
    document.turnedText({kLeftScale, band.bottom}, kQuarterTurn, band.leftScale);
    if (band.rightScale)
        document.turnedText({kRightScale, band.bottom}, kQuarterTurn, band.rightScale);
}

void drawFoot(PageDocument& document, const DayPage& page) {
    if (!page.results.isThere()) return;
    document.font = {10, Weight::Normal};
    for (const Result& result : kResults) {
        const std::string_view value = page.results.line(result.line).value_or("");
        document.text(result.label.at, std::string(result.label.text).append(value));
    }
    document.text({1500, 13700}, page.comment);
}

void drawCurve(PageDocument& document, const DaySeries& series, const DayTables& tables) {
    document.pen = {series.colour, series.penWidth, PenStyle::Solid};
    // The curve is drawn again for each hour, each time one hour longer.
    for (int hour = 0; hour < DayTables::kHours; ++hour)
        document.polyline(series.coordinates(tables, hour));
}

}  // namespace

PageDocument composeDayPage(const DayPage& page, const DayTables& tables) {
    PageDocument document;
    document.margins = {720, 720, 720, 720};
    document.newPage();
    drawHeading(document, page);
    for (const Band& band : kBands) {
        drawGrid(document, band);
        drawCaption(document, band.red, kPageRed);
        drawCaption(document, band.blue, kPageBlue);
        drawScales(document, band);
    }
    drawFoot(document, page);
    for (const DaySeries& series : kDaySeries) drawCurve(document, series, tables);
    return document;
}

}  // namespace hmonitor
