// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"
#include "performance/form_d4a.h"
#include "performance/hour_marks.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

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

constexpr TextStyle kWord{{140, Weight::Bold}};

/// Where each chart stands and what scale it has.
struct ChartTable {
    std::size_t well;
    float top;  ///< of its caption's room, in the well
    bool marked;
    float width;
    int lowest, highest, step;
    int columns;
    Colour first, second;
};
constexpr ChartTable kChartTables[] = {
    {0, 0, true, kUpperWidth, 25, 150, 25, 1, look::kSeriesRed, look::kSeriesRed},
    {1, 0, true, kUpperWidth, 0, 5, 1, 1, look::kSeriesBlue, look::kSeriesBlue},
    {2, 0, true, kLowerWidth, -10, 5, 5, 2, look::kSeriesBlue, look::kSeriesRed},
    {3, 0, true, kLowerWidth, 0, 180, 45, 1, look::kSeriesBlue, look::kSeriesBlue},
    {2, kNextChart, false, kLowerWidth, 0, 300, 100, 1, look::kSeriesRed, look::kSeriesRed},
    {3, kNextChart, false, kLowerWidth, 0, 10, 5, 2, look::kSeriesBlue, look::kSeriesRed},
};
constexpr Says kChartNames[] = {
    {"Modulación por hora, en porciento", "Modulation by the hour, in percent"},
    {"Potencia radiada por hora", "Radiated power by the hour"},
    {"Niveles por hora, en decibeles", "Levels by the hour, in decibels"},
    {"Fase estéreo por hora, en grados", "Stereo phase by the hour, in degrees"},
    {"Picos de sobremodulación por minuto", "Overmodulation peaks a minute"},
    {"Silencios y fase invertida por hora", "Silences and inverted phase by the hour"},
};

}  // namespace

void Form_D4A::layOut() {
    layWindow(kWidth, kHeight, "Analyze data", Faceplate);
    layOutHead();
    layOutWells();
    for (std::size_t i = 0; i < kCharts; ++i) layOutChart(i);
    layOutCaptions();
    layOutHourMarks();
    layOutFoot();
    tabOrder(Combo1, HScroll1, HScroll2, SSCommand1, SSCommand2, SSCommand3, Graph);
}

void Form_D4A::layOutHead() {
    constexpr TextStyle kHeading{{190, Weight::Bold}, look::kScaleColour};
    layStrip(SSPanel1);
    place(Heading, {250, 110, 3400, 280}, &SSPanel1, kHeading, "On-Air Performance Log");
    place(Combo1, {4560, 90, 2000, 310}, Says{"Día del registro", "Day of the log"});
    place(File1, {4560, 90, 2000, 310}, Hidden{},
          Says{"Registros de la carpeta", "Logs of the folder"});
    place(Label_Station, {8900, 140, 2400, 240}, &SSPanel1, look::kTitleText.right());
    place(Label_Mhz, {11400, 140, 1550, 240}, &SSPanel1, look::kTitleText.in(kCyan).right());
}

void Form_D4A::layOutWells() {
    Picture* const backgrounds[] = {&Picture1, &Picture4, &Picture5, &Picture2};
    for (std::size_t i = 0; i < kWells; ++i) {
        const bool upper = i < 2;
        const float wellHeight = upper ? kUpperHeight : kLowerHeight;
        place(Well[i], {kWellLeft[i % 2], upper ? kUpperTop : kLowerTop, kWellWidth, wellHeight},
              Surface::Well);
        // As far beyond the well's edges as it is nudged.
        place(*backgrounds[i], {-120, 0, kWellWidth + 240, wellHeight}, &Well[i], "GraphPaper");
    }
}

void Form_D4A::layOutChart(std::size_t chart) {
    const ChartTable& table = kChartTables[chart];
    Panel& well = Well[table.well];
    const float above = table.marked ? kMarkRoom : 0;
    const float viewTop = table.top + kViewTop;
    place(View[chart], {kViewLeft, viewTop, kViewWidth, above + kChartHeight}, &well);

    Chart& graph = Graph[chart];
    place(graph, {kRest, above, table.width, kChartHeight}, &View[chart], kChartNames[chart]);
    graph.insets = Chart::Insets{-kRest, kPlotTop, table.width + kRest - kPlotWidth, kRowLabelRoom};
    graph.lowest = static_cast<float>(table.lowest);
    graph.highest = static_cast<float>(table.highest);
    graph.gridStep = static_cast<float>(table.step);
    graph.rowCount(DayTables::kHours);
    graph.columnCount(table.columns);
    graph.seriesColour(1, table.first);
    graph.seriesColour(2, table.second);
    graph.pictureBox = {well.left, well.top + table.top, kWellWidth,
                        kViewTop + above + kChartHeight + 40};
    for (graph.row = DayTables::kHours; graph.row > 1; --graph.row)
        graph.rowLabel(wholeText(graph.row - 1));
    graph.rowLabel("0");

    int number = 0;
    for (std::size_t i = 0; i < chart; ++i) {
        const ChartTable& before = kChartTables[i];
        number += (before.highest - before.lowest) / before.step + 1;
    }
    for (int value = table.lowest; value <= table.highest; value += table.step, ++number) {
        const float share = static_cast<float>(value - table.lowest) /
                            static_cast<float>(table.highest - table.lowest);
        const float y = viewTop + above + kPlotTop + kPlotHeight * (1 - share);
        place(Scale[number], {40, y - 75, kViewLeft - 110, 150}, &well, look::kScaleText.right(),
              wholeText(value));
    }
}

void Form_D4A::layOutCaptions() {
    auto word = [this, label = kFirstLabel](const char* text, int well, float edge, float down,
                                            float wide, Colour colour) mutable {
        place(Label[label++], {kViewLeft + edge, down + kCaptionTop, wide, 190}, &Well[well],
              kWord.in(colour), text);
    };
    word("Modulation", 0, 0, 0, 1100, look::kSeriesRed);
    word("RF Power", 1, 0, 0, 1000, look::kSeriesBlue);
    word("Left", 2, 0, 0, 320, look::kSeriesBlue);
    word("and", 2, 330, 0, 280, look::kScaleColour);
    word("Right", 2, 640, 0, 410, look::kSeriesRed);
    word("Level", 2, 1080, 0, 450, look::kScaleColour);
    word("Stereo", 3, 0, 0, 490, look::kSeriesBlue);
    word("Phase", 3, 510, 0, 480, look::kSeriesBlue);
    word("OverMod", 2, 0, kNextChart, 670, look::kSeriesRed);
    word("Pk/min", 2, 690, kNextChart, 580, look::kSeriesRed);
    word("Silence", 3, 0, kNextChart, 540, look::kSeriesRed);
    word("Inverted", 3, 560, kNextChart, 650, look::kSeriesBlue);
    place(Label[20], {3800, 150, 700, 190}, &SSPanel1,
          look::kDialogText.in(look::kCaptionColour).right(), "Retrive");

    auto unit = [this, i = 0](const char* text, int well) mutable {
        place(Unit[i++], {kWellWidth - 520, kCaptionTop, 400, 170}, &Well[well],
              look::kUnitText.right(), text);
    };
    unit("%", 0);
    unit("dB", 2);
    unit("\u00b0", 3);
}

void Form_D4A::layOutHourMarks() {
    constexpr float kMarkWidth = 460;
    constexpr float kRow = kPlotWidth / DayTables::kHours;
    for (const HourMark& mark : kHourMarks) {
        const float middle = kRow * (static_cast<float>(mark.hour) + 0.5f);
        const bool first = mark.hour == 0;
        place(Label[mark.label], {first ? 30 : middle - kMarkWidth / 2, 10, kMarkWidth, 150},
              &View[mark.chart - 1], mark.text,
              TextStyle{look::kScale, look::kUnitColour, first ? Align::Left : Align::Centre});
    }
}

void Form_D4A::layOutFoot() {
    constexpr float kEdge = kWellLeft[0];
    const float wide = kWidth - 2 * kEdge;
    place(HScroll1, {kEdge, kUpperBar, wide, kBarHeight},
          Says{"Desplazar modulación y potencia", "Move modulation and power sideways"})
        .range(0, kUpperSteps, 1);
    place(HScroll2, {kEdge, kLowerBar, wide, kBarHeight},
          Says{"Desplazar los otros gráficos", "Move the other charts sideways"})
        .range(0, kLowerSteps, 5);
    place(SSCommand1, {kEdge, kKeyTop, 2000, look::kKeyHeight}, "Print Mode",
          Says{"Página para imprimir", "Page to print"});
    place(SSCommand2, {kEdge + 2120, kKeyTop, 2000, look::kKeyHeight}, "Text Mode",
          Says{"El día como texto", "The day as text"});
    place(SSCommand3, {kWidth - kEdge - 2000, kKeyTop, 2000, look::kKeyHeight}, "Cancel",
          Role::Cancel, Says{"Cerrar", "Close"});
}

}  // namespace hmonitor
