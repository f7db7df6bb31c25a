// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_band_scanner.h"
#include "core/numbers.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;
using namespace std::chrono_literals;

namespace {

constexpr float kWidth = 11000;
constexpr float kHeight = 7000;

// The chart has 21 rows side by side, ten of which are visible; the scroll bar moves it by a row.
// Its left margin is the 280 twips by which it begins outside the visible part.
constexpr float kRowWidth = 920;
constexpr float kMarginLeft = 280;
constexpr float kChartWidth = kScanRows * kRowWidth + 2 * kMarginLeft;
constexpr int kLastScroll = 11;
constexpr float kViewWidth = kChartWidth - kMarginLeft - kLastScroll * kRowWidth;

constexpr float kPlotTop = 180;
constexpr float kPlotHeight = 3920;
constexpr float kRowLabelRoom = 300;
constexpr float kViewHeight = kPlotTop + kPlotHeight + kRowLabelRoom;
constexpr float kLegendTop = 5530;

}  // namespace

void Form_BandSCanner::layOut() {
    layWindow(kWidth, kHeight, "Band Scanner", Faceplate);
    layTitle(SSPanel1, Label9, "Band Scanner", &Refused);
    layOutChart();
    layOutFoot();
    tabOrder(HScroll1, Option_All, Option_Pares, Option_Impares, Option_250Khz, Command3D1,
             SSCommand1, CommandClose);
    Timer1.interval = 250ms;
}

void Form_BandSCanner::layOutChart() {
    constexpr float kScaleWidth = 620;
    place(ChartWell, {look::kMargin, 520, kWidth - 2 * look::kMargin, kViewHeight + 380},
          Surface::Well);
    for (int i = 0; i < static_cast<int>(Scale.size()); ++i) {
        const float y = kPlotTop + kPlotHeight * static_cast<float>(i) / 7;
        place(Scale[i], {60, y - 75, kScaleWidth - 160, 150}, &ChartWell, look::kScaleText.right(),
              wholeText(100 - 10 * i));
    }
    place(Label12, {60, kPlotTop + kPlotHeight + 120, kScaleWidth - 160, 150}, &ChartWell,
          look::kUnitText.right(), "dB");

    Graph1.pictureBox = {look::kMargin, 520, kWidth - 2 * look::kMargin, kLegendTop + 260 - 520};
    place(ChartView, {kScaleWidth, 0, kViewWidth, kViewHeight}, &ChartWell);
    place(Graph1, {-kMarginLeft, 0, kChartWidth, kViewHeight}, &ChartView,
          Says{"Niveles de la banda", "Levels of the band"});
    Graph1.insets = Chart::Insets{kMarginLeft, kPlotTop, kMarginLeft, kRowLabelRoom};
    Graph1.lowest = 30.f;
    Graph1.highest = 100.f;
    Graph1.rowCount(kScanRows);

    place(HScroll1, {kScaleWidth, kViewHeight + 60, kViewWidth, 240}, &ChartWell,
          Says{"Desplazar el gráfico", "Move the chart sideways"})
        .range(0, kLastScroll, 5);
}

void Form_BandSCanner::layOutFoot() {
    place(Label_Channels, {look::kMargin, kLegendTop, 1300, 170}, look::kCaptionText, "Channels:");
    for (std::size_t i = 0; i < ScanLegend::kColumns; ++i) {
        const float x = 1700 + 900 * static_cast<float>(i);
        place(legend.stroke(i), x, kLegendTop + 85, x + 280, kLegendTop + 85).thickness = 5;
        place(legend.Label_Serie[i], {x + 350, kLegendTop, 480, 170}, look::kPlainText);
    }
    legend.colour(Graph1, ScanGround::Screen);

    constexpr float kKeyTop = 6150;
    constexpr float kOptionTop = kKeyTop + 80;
    place(Option_All, {360, kOptionTop, 800, 280}, "All",
          Says{"Todos los canales, cada 100 kHz", "All channels, each 100 kHz"});
    place(Option_Pares, {1310, kOptionTop, 950, 280}, "Even",
          Says{"Canales pares", "Even channels"});
    place(Option_Impares, {2410, kOptionTop, 850, 280}, "Odd",
          Says{"Canales impares", "Odd channels"})
        .chosen = true;
    place(Option_250Khz, {3410, kOptionTop, 1300, 280}, "250 Khz",
          Says{"Cada 250 kHz", "Each 250 kHz"});

    place(Command3D1, {5200, kKeyTop, 1700, 430}, "&New run", Role::Default,
          Says{"Nueva corrida, o detener el barrido", "New run, or stop the sweep"});
    place(SSCommand1, {7070, kKeyTop, 1700, 430}, "Print Mode",
          Says{"Página para imprimir", "Page to print"});
    place(CommandClose, {8940, kKeyTop, 1700, 430}, "&Cancel", Role::Cancel,
          Says{"Detener la corrida, o cerrar", "Stop the run, or close"}, Tip{kCloseTip});
    showOption(scanOption(ScanSpacing::Odd));
}

}  // namespace hmonitor
