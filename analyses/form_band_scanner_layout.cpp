// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_band_scanner.h"
#include "core/look.h"
#include "core/numbers.h"
#include "core/window_look.h"

namespace hmonitor {

using namespace std::chrono_literals;
using display::Align;
using display::Surface;

namespace {

constexpr float kWidth = 11000;
constexpr float kHeight = 7000;

// The chart is 21 rows wide and shows ten of them; the bar moves it by a row. Its own margin is as
// wide as the 280 twips that it stands out of view at the left.
constexpr float kRowWidth = 920;
constexpr float kMarginLeft = 280;
constexpr float kChartWidth = kScanRows * kRowWidth + 2 * kMarginLeft;
constexpr int kLastScroll = 11;
constexpr float kViewWidth = kChartWidth - kMarginLeft - kLastScroll * kRowWidth;

constexpr float kPlotTop = 180;
constexpr float kPlotHeight = 3920;
constexpr float kRowLabelRoom = 300;
constexpr float kViewHeight = kPlotTop + kPlotHeight + kRowLabelRoom;

}  // namespace

void Form_BandSCanner::layOut() {
    width = kWidth;
    height = kHeight;
    caption = "Band Scanner";
    place(Faceplate, {0, 0, kWidth, kHeight}).surface = Surface::Faceplate;
    place(SSPanel1, {0, 0, kWidth, look::kTitleStrip});
    SSPanel1.says = {"Mover la ventana", "Move the window"};
    place(Label9, look::titleBox(look::kTitleWithNote), &SSPanel1).caption = "Band Scanner";
    Label9.font = look::kTitle;
    Label9.colour = look::kScaleColour;
    look::likeNote(place(Refused, look::noteBox(kWidth), &SSPanel1));
    layOutChart();
    layOutFoot();
    Timer1.interval = 250ms;
}

void Form_BandSCanner::layOutChart() {
    constexpr float kWellTop = 520;
    constexpr float kScaleWidth = 620;
    constexpr float kWellHeight = kViewHeight + 380;
    place(ChartWell, {look::kMargin, kWellTop, kWidth - 2 * look::kMargin, kWellHeight}).surface =
        Surface::Well;
    for (std::size_t i = 0; i < Scale.size(); ++i) {
        const float y = kPlotTop + kPlotHeight * static_cast<float>(i) / 7;
        place(Scale[i], {60, y - 75, kScaleWidth - 160, 150}, &ChartWell).caption =
            wholeText(100 - 10 * static_cast<int>(i));
        Scale[i].align = Align::Right;
        Scale[i].font = look::kScale;
        Scale[i].colour = look::kScaleColour;
    }
    place(Label12, {60, kPlotTop + kPlotHeight + 120, kScaleWidth - 160, 150}, &ChartWell).caption =
        "dB";
    Label12.align = Align::Right;
    Label12.font = look::kUnit;
    Label12.colour = look::kUnitColour;

    place(ChartView, {kScaleWidth, 0, kViewWidth, kViewHeight}, &ChartWell);
    place(Graph1, {-kMarginLeft, 0, kChartWidth, kViewHeight}, &ChartView);
    Graph1.insets = display::Chart::Insets{kMarginLeft, kPlotTop, kMarginLeft, kRowLabelRoom};
    Graph1.lowest = 30.f;
    Graph1.highest = 100.f;
    Graph1.rowCount(kScanRows);
    Graph1.says = {"Niveles de la banda", "Levels of the band"};

    place(HScroll1, {kScaleWidth, kViewHeight + 60, kViewWidth, 240}, &ChartWell)
        .range(0, kLastScroll, 5);
    HScroll1.says = {"Desplazar el gráfico", "Move the chart sideways"};
    HScroll1.tabIndex = 1;
}

void Form_BandSCanner::layOutFoot() {
    constexpr float kLegendTop = 5530;
    place(Label_Channels, {look::kMargin, kLegendTop, 1300, 170}).caption = "Channels:";
    Label_Channels.font = look::kCaption;
    Label_Channels.colour = look::kCaptionColour;
    for (std::size_t i = 0; i < ScanLegend::kColumns; ++i) {
        const float x = 1700 + 900 * static_cast<float>(i);
        place(legend.stroke(i), x, kLegendTop + 85, x + 280, kLegendTop + 85).thickness = 5;
        place(legend.Label_Serie[i], {x + 350, kLegendTop, 480, 170}).font = look::kCaption;
        legend.Label_Serie[i].colour = look::kScaleColour;
    }
    legend.colour(Graph1, ScanGround::Screen);

    constexpr float kKeyTop = 6150;
    struct Choice {
        display::Option& option;
        const char* words;
        display::Words says;
        float width;
    };
    const Choice choices[] = {
        {Option_All, "All", {"Todos los canales, cada 100 kHz", "All channels, each 100 kHz"}, 800},
        {Option_Pares, "Even", {"Canales pares", "Even channels"}, 950},
        {Option_Impares, "Odd", {"Canales impares", "Odd channels"}, 850},
        {Option_250Khz, "250 Khz", {"Cada 250 kHz", "Each 250 kHz"}, 1300},
    };
    float x = look::kMargin;
    int tab = 1;
    for (const Choice& choice : choices) {
        place(choice.option, {x, kKeyTop + 80, choice.width, 280}).caption = choice.words;
        choice.option.says = choice.says;
        choice.option.tabIndex = ++tab;
        x += choice.width + 150;
    }
    Option_Impares.chosen = true;

    place(Command3D1, {5200, kKeyTop, 1700, 430}).caption = "&New run";
    Command3D1.says = {"Nueva corrida, o detener el barrido", "New run, or stop the sweep"};
    Command3D1.isDefault = true;
    Command3D1.tabIndex = 6;
    place(SSCommand1, {7070, kKeyTop, 1700, 430}).caption = "Print Mode";
    SSCommand1.says = {"Página para imprimir", "Page to print"};
    SSCommand1.tabIndex = 7;
    place(CommandClose, {8940, kKeyTop, 1700, 430}).caption = "&Cancel";
    CommandClose.says = {"Detener la corrida, o cerrar", "Stop the run, or close"};
    CommandClose.tip = kCloseTip;
    CommandClose.isCancel = true;
    CommandClose.tabIndex = 8;
    showOption(scanOption(ScanSpacing::Odd));
}

}  // namespace hmonitor
