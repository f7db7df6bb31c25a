// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/look.h"
#include "core/numbers.h"
#include "core/window_look.h"
#include "performance/form_d4a.h"
#include "performance/hour_marks.h"

namespace hmonitor {

using display::Align;
using display::Colour;
using display::Surface;

namespace {

constexpr float kWidth = 13200;

// Two columns of charts; each chart is wider than what is seen of it.
constexpr float kWellWidth = 6270;
constexpr float kWellLeft[] = {250, 6680};
constexpr float kViewLeft = 560;
constexpr float kViewWidth = 5600;

// Over the plot stand the caption and, in the upper chart of a well, the hour marks.
constexpr float kCaptionTop = 60;
constexpr float kMarkRoom = 170;
constexpr float kViewTop = 260;
constexpr float kPlotTop = 60;
constexpr float kPlotHeight = 1120;
constexpr float kRowLabelRoom = 230;
constexpr float kChartHeight = kPlotTop + kPlotHeight + kRowLabelRoom;
constexpr float kUpperHeight = kViewTop + kMarkRoom + kChartHeight + 40;
/// From the upper chart of the lower wells to the one below it.
constexpr float kNextChart = kUpperHeight;
constexpr float kLowerHeight = kUpperHeight + kViewTop + kChartHeight + 40;

constexpr float kUpperTop = 520;
constexpr float kBarHeight = 240;
constexpr float kUpperBar = kUpperTop + kUpperHeight + 50;
constexpr float kLowerTop = kUpperBar + kBarHeight + 110;
constexpr float kLowerBar = kLowerTop + kLowerHeight + 50;
constexpr float kKeyTop = kLowerBar + kBarHeight + 150;
constexpr float kHeight = kKeyTop + look::kKeyHeight + 170;

// At rest a chart's first 240 twips lie out of view, at the end of its bar its right edge is the
// view's.
constexpr float kRest = -240;
constexpr int kUpperSteps = 2;
constexpr int kLowerSteps = 14;
constexpr float kUpperWidth = kViewWidth + 1110 * kUpperSteps + 2250;
constexpr float kLowerWidth = kViewWidth + 300 * kLowerSteps + 240;
constexpr float kPlotWidth = 9710;

/// Where each chart stands and what scale it has.
struct ChartTable {
    std::size_t well;
    float top;  ///< of its caption's room, in the well
    bool marked;
    float width;
    int lowest, highest, step;
    int columns;
    Colour first, second;
    display::Words says;
};
const ChartTable kChartTables[] = {
    {0,
     0,
     true,
     kUpperWidth,
     25,
     150,
     25,
     1,
     look::kSeriesRed,
     look::kSeriesRed,
     {"Modulación por hora, en porciento", "Modulation by the hour, in percent"}},
    {1,
     0,
     true,
     kUpperWidth,
     0,
     5,
     1,
     1,
     look::kSeriesBlue,
     look::kSeriesBlue,
     {"Potencia radiada por hora", "Radiated power by the hour"}},
    {2,
     0,
     true,
     kLowerWidth,
     -10,
     5,
     5,
     2,
     look::kSeriesBlue,
     look::kSeriesRed,
     {"Niveles por hora, en decibeles", "Levels by the hour, in decibels"}},
    {3,
     0,
     true,
     kLowerWidth,
     0,
     180,
     45,
     1,
     look::kSeriesBlue,
     look::kSeriesBlue,
     {"Fase estéreo por hora, en grados", "Stereo phase by the hour, in degrees"}},
    {2,
     kNextChart,
     false,
     kLowerWidth,
     0,
     300,
     100,
     1,
     look::kSeriesRed,
     look::kSeriesRed,
     {"Picos de sobremodulación por minuto", "Overmodulation peaks a minute"}},
    {3,
     kNextChart,
     false,
     kLowerWidth,
     0,
     10,
     5,
     2,
     look::kSeriesBlue,
     look::kSeriesRed,
     {"Silencios y fase invertida por hora", "Silences and inverted phase by the hour"}},
};

float chartTop(const ChartTable& table) {
    return table.marked ? kMarkRoom : 0;
}

}  // namespace

void Form_D4A::layOut() {
    width = kWidth;
    height = kHeight;
    caption = "Analyze data";
    layOutHead();
    layOutWells();
    for (std::size_t i = 0; i < kCharts; ++i) layOutChart(i);
    layOutCaptions();
    layOutHourMarks();
    layOutFoot();
}

void Form_D4A::layOutHead() {
    place(Faceplate, {0, 0, kWidth, kHeight}).surface = Surface::Faceplate;
    place(SSPanel1, {0, 0, kWidth, look::kTitleStrip});
    SSPanel1.says = {"Mover la ventana", "Move the window"};
    place(Heading, {250, 110, 3400, 280}, &SSPanel1).caption = "On-Air Performance Log";
    Heading.font = display::Font{190, display::Weight::Bold};
    Heading.colour = look::kScaleColour;
    place(Combo1, {4560, 90, 2000, 310});
    Combo1.says = {"Día del registro", "Day of the log"};
    Combo1.tabIndex = 1;
    place(File1, {4560, 90, 2000, 310}).visible = false;
    File1.says = {"Registros de la carpeta", "Logs of the folder"};
    place(Label_Station, {8900, 140, 2400, 240}, &SSPanel1).font = look::kTitle;
    Label_Station.align = Align::Right;
    Label_Station.colour = look::kScaleColour;
    place(Label_Mhz, {11400, 140, 1550, 240}, &SSPanel1).font = look::kTitle;
    Label_Mhz.align = Align::Right;
    Label_Mhz.colour = display::kCyan;
}

void Form_D4A::layOutWells() {
    display::Picture* const backgrounds[] = {&Picture1, &Picture4, &Picture5, &Picture2};
    for (std::size_t i = 0; i < kWells; ++i) {
        const bool upper = i < 2;
        const float wellHeight = upper ? kUpperHeight : kLowerHeight;
        place(Well[i], {kWellLeft[i % 2], upper ? kUpperTop : kLowerTop, kWellWidth, wellHeight})
            .surface = Surface::Well;
        // As far beyond the well's edges as it is nudged.
        place(*backgrounds[i], {-120, 0, kWellWidth + 240, wellHeight}, &Well[i]).picture =
            "GraphPaper";
    }
}

void Form_D4A::layOutChart(std::size_t chart) {
    const ChartTable& table = kChartTables[chart];
    display::Panel& well = Well[table.well];
    const float above = chartTop(table);
    const float viewTop = table.top + kViewTop;
    place(View[chart], {kViewLeft, viewTop, kViewWidth, above + kChartHeight}, &well);

    display::Chart& graph = Graph[chart];
    place(graph, {kRest, above, table.width, kChartHeight}, &View[chart]);
    graph.insets =
        display::Chart::Insets{-kRest, kPlotTop, table.width + kRest - kPlotWidth, kRowLabelRoom};
    graph.lowest = static_cast<float>(table.lowest);
    graph.highest = static_cast<float>(table.highest);
    graph.gridStep = static_cast<float>(table.step);
    graph.rowCount(DayTables::kHours);
    graph.columnCount(table.columns);
    graph.seriesColour(1, table.first);
    graph.seriesColour(2, table.second);
    graph.says = table.says;
    for (graph.row = DayTables::kHours; graph.row > 1; --graph.row)
        graph.rowLabel(wholeText(graph.row - 1));
    graph.rowLabel("0");

    std::size_t number = 0;
    for (std::size_t i = 0; i < chart; ++i) {
        const ChartTable& before = kChartTables[i];
        number += static_cast<std::size_t>((before.highest - before.lowest) / before.step + 1);
    }
    for (int value = table.lowest; value <= table.highest; value += table.step, ++number) {
        const float share = static_cast<float>(value - table.lowest) /
                            static_cast<float>(table.highest - table.lowest);
        const float y = viewTop + above + kPlotTop + kPlotHeight * (1 - share);
        place(Scale[number], {40, y - 75, kViewLeft - 110, 150}, &well).caption = wholeText(value);
        Scale[number].align = Align::Right;
        Scale[number].font = look::kScale;
        Scale[number].colour = look::kScaleColour;
    }
}

void Form_D4A::layOutCaptions() {
    struct Word {
        int label;
        const char* text;
        std::size_t well;
        float left, top, width;
        Colour colour;
    };
    const Word words[] = {
        {8, "Modulation", 0, 0, 0, 1100, look::kSeriesRed},
        {9, "RF Power", 1, 0, 0, 1000, look::kSeriesBlue},
        {10, "Left", 2, 0, 0, 320, look::kSeriesBlue},
        {11, "and", 2, 330, 0, 280, look::kScaleColour},
        {12, "Right", 2, 640, 0, 410, look::kSeriesRed},
        {13, "Level", 2, 1080, 0, 450, look::kScaleColour},
        {14, "Stereo", 3, 0, 0, 490, look::kSeriesBlue},
        {15, "Phase", 3, 510, 0, 480, look::kSeriesBlue},
        {16, "OverMod", 2, 0, kNextChart, 670, look::kSeriesRed},
        {17, "Pk/min", 2, 690, kNextChart, 580, look::kSeriesRed},
        {18, "Silence", 3, 0, kNextChart, 540, look::kSeriesRed},
        {19, "Inverted", 3, 560, kNextChart, 650, look::kSeriesBlue},
    };
    for (const Word& word : words) {
        display::Label& label = Label[static_cast<std::size_t>(word.label - kFirstLabel)];
        place(label, {kViewLeft + word.left, word.top + kCaptionTop, word.width, 190},
              &Well[word.well])
            .caption = word.text;
        label.font = display::Font{140, display::Weight::Bold};
        label.colour = word.colour;
    }
    display::Label& frame = Label[20 - kFirstLabel];
    place(frame, {3800, 150, 700, 190}, &SSPanel1).caption = "Retrive";
    frame.font = look::kDialog;
    frame.colour = look::kCaptionColour;
    frame.align = Align::Right;

    struct UnitPlace {
        const char* text;
        std::size_t well;
    };
    constexpr UnitPlace kUnits[] = {{"%", 0}, {"dB", 2}, {"\u00b0", 3}};
    for (std::size_t i = 0; i < Unit.size(); ++i) {
        place(Unit[i], {kWellWidth - 520, kCaptionTop, 400, 170}, &Well[kUnits[i].well]).caption =
            kUnits[i].text;
        Unit[i].align = Align::Right;
        Unit[i].font = look::kUnit;
        Unit[i].colour = look::kUnitColour;
    }
}

void Form_D4A::layOutHourMarks() {
    constexpr float kMarkWidth = 460;
    constexpr float kRow = kPlotWidth / DayTables::kHours;
    for (const HourMark& mark : kHourMarks) {
        display::Label& label = Label[static_cast<std::size_t>(mark.label - kFirstLabel)];
        const float middle = kRow * (static_cast<float>(mark.hour) + 0.5f);
        const float start = mark.hour == 0 ? 30 : middle - kMarkWidth / 2;
        place(label, {start, 10, kMarkWidth, 150}, &View[static_cast<std::size_t>(mark.chart - 1)])
            .caption = mark.text;
        label.font = look::kScale;
        label.colour = look::kUnitColour;
        label.align = mark.hour == 0 ? Align::Left : Align::Centre;
    }
}

void Form_D4A::layOutFoot() {
    const float barLeft = kWellLeft[0];
    const float barWidth = kWidth - 2 * barLeft;
    place(HScroll1, {barLeft, kUpperBar, barWidth, kBarHeight}).range(0, kUpperSteps, 1);
    HScroll1.says = {"Desplazar modulación y potencia", "Move modulation and power sideways"};
    HScroll1.tabIndex = 2;
    place(HScroll2, {barLeft, kLowerBar, barWidth, kBarHeight}).range(0, kLowerSteps, 5);
    HScroll2.says = {"Desplazar los otros gráficos", "Move the other charts sideways"};
    HScroll2.tabIndex = 3;

    place(SSCommand1, {barLeft, kKeyTop, 2000, look::kKeyHeight}).caption = "Print Mode";
    SSCommand1.says = {"Página para imprimir", "Page to print"};
    SSCommand1.tabIndex = 4;
    place(SSCommand2, {barLeft + 2120, kKeyTop, 2000, look::kKeyHeight}).caption = "Text Mode";
    SSCommand2.says = {"El día como texto", "The day as text"};
    SSCommand2.tabIndex = 5;
    place(SSCommand3, {kWidth - barLeft - 2000, kKeyTop, 2000, look::kKeyHeight}).caption =
        "Cancel";
    SSCommand3.says = {"Cerrar", "Close"};
    SSCommand3.isCancel = true;
    SSCommand3.tabIndex = 6;
}

}  // namespace hmonitor
