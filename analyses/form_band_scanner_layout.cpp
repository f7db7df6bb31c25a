// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_band_scanner.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;
using namespace std::chrono_literals;

namespace {

constexpr float kChartEnd = 10640;  ///< of the well, and of the keys below it
constexpr float kListLeft = 10860;
constexpr float kListWidth = 2700;
constexpr float kWidth = kListLeft + kListWidth + look::kMargin;
constexpr float kHeight = 7000;
constexpr float kWellTop = 520;

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
constexpr float kKeyTop = 6150;
constexpr float kScaleWidth = 620;
constexpr float kWholeMargin = 60;

}  // namespace

void Form_BandSCanner::layOut() {
    language = panelLanguage(desktop().userLanguageId());
    layWindow(kWidth, kHeight, "Band Scanner", Faceplate);
    layTitle(SSPanel1, Label9, "Band Scanner", &Refused, &Station);
    layOutChart();
    layOutFoot();
    layOutList();
    tabOrder(HScroll1, KeyWhole, Graph1, KeyByFrequency, KeyByLevel, Stations, Option_All,
             Option_Pares, Option_Impares, Option_250Khz, Command3D1, SSCommand1, CommandClose,
             KeyTune);
    Timer1.interval = 250ms;
}

void Form_BandSCanner::layOutChart() {
    constexpr float kWhole = 1500;
    place(ChartWell, {look::kMargin, kWellTop, kChartEnd - look::kMargin, kViewHeight + 380},
          Surface::Well);
    for (int i = 0; i < static_cast<int>(Scale.size()); ++i) {
        const float y = kPlotTop + kPlotHeight * static_cast<float>(i) / 7;
        place(Scale[i], {60, y - 75, kScaleWidth - 160, 150}, &ChartWell, look::kScaleText.right(),
              wholeText(100 - 10 * i));
    }
    place(Label12, {60, kPlotTop + kPlotHeight + 120, kScaleWidth - 160, 150}, &ChartWell,
          look::kUnitText.right(), "dB");

    Graph1.pictureBox = {look::kMargin, kWellTop, kChartEnd - look::kMargin,
                         kLegendTop + 460 - kWellTop};
    place(ChartView, {kScaleWidth, 0, kViewWidth, kViewHeight}, &ChartWell);
    place(Graph1, {-kMarginLeft, 0, kChartWidth, kViewHeight}, &ChartView,
          Says{"Niveles de la banda", "Levels of the band"});
    Graph1.picks = {"Clic o Intro: sintonizar", "Click or Enter: tune"};
    Graph1.lowest = 30.f;
    Graph1.highest = 100.f;
    Graph1.rowCount(kScanRows);

    place(HScroll1, {kScaleWidth, kViewHeight + 60, kViewWidth - kWhole - 60, 240}, &ChartWell,
          Says{"Desplazar el gráfico", "Move the chart sideways"})
        .range(0, kLastScroll, 5);
    place(KeyWhole, {kScaleWidth + kViewWidth - kWhole, kViewHeight + 40, kWhole, 290}, &ChartWell,
          Words{"&Toda la banda", "&Whole band"}, Says{"Toda la banda", "Whole band"},
          Tip{"Muestra la banda entera, o vuelve a la vista ampliada",
              "Shows the whole band at once, or goes back to the larger view"});
    showWhole(false);
}

void Form_BandSCanner::placeChart() {
    if (whole_) {
        Graph1.insets = Chart::Insets{kWholeMargin, kPlotTop, kWholeMargin, kRowLabelRoom};
        Graph1.width = kViewWidth;
        Graph1.left = 0.f;
        return;
    }
    Graph1.insets = Chart::Insets{kMarginLeft, kPlotTop, kMarginLeft, kRowLabelRoom};
    Graph1.width = kChartWidth;
    showScrolled();
}

void Form_BandSCanner::layOutList() {
    constexpr float kHead = 300;
    constexpr float kFrequency = 900;
    constexpr float kLevel = 640;
    place(KeyByFrequency, {kListLeft, kWellTop, kFrequency, kHead}, "MHz",
          SaysAndTip{"Ordenar por frecuencia", "Sort by frequency"});
    place(KeyByLevel, {kListLeft + kFrequency + 40, kWellTop, kLevel, kHead}, "dBµV",
          SaysAndTip{"Ordenar por nivel", "Sort by level"});
    place(ListName,
          {kListLeft + kFrequency + kLevel + 140, kWellTop + 70,
           kListWidth - kFrequency - kLevel - 140, 170},
          look::kCaptionText, Words{"Memoria", "Memory"});
    place(Stations,
          {kListLeft, kWellTop + kHead + 60, kListWidth, kLegendTop + 170 - kWellTop - kHead - 60},
          Says{"Canales medidos: frecuencia, nivel y memoria",
               "Measured channels: frequency, level and memory"},
          Tip{"Doble clic o Intro: sintonizar", "Double click or Enter: tune"})
        .fixedPitch = true;
    place(ListNote, {kListLeft, kLegendTop + 210, kListWidth, 360}, look::kCaptionText);
    place(KeyTune, {kListLeft, kKeyTop, kListWidth, 430}, Words{"&Sintonizar", "&Tune"},
          Says{"Sintonizar el canal elegido", "Tune to the chosen channel"},
          Tip{"Lleva el equipo al canal elegido; durante un barrido, al terminar",
              "Takes the unit to the chosen channel; during a sweep, when it ends"});
    KeyTune.enabled = false;
    orderBy(StationList::Order::Frequency);
}

void Form_BandSCanner::layOutFoot() {
    place(Label_Channels, {look::kMargin, kLegendTop, 1300, 170}, look::kCaptionText, "Channels:");
    for (std::size_t i = 0; i < ScanLegend::kColumns; ++i) {
        const float x = 1700 + 900 * static_cast<float>(i);
        place(legend.stroke(i), x, kLegendTop + 85, x + 280, kLegendTop + 85).thickness = 5;
        place(legend.Label_Serie[i], {x + 350, kLegendTop, 480, 170}, look::kPlainText);
    }
    legend.colour(Graph1, ScanGround::Screen);

    place(EarlierStroke, 1700, kLegendTop + 335, 1980, kLegendTop + 335, Hidden{},
          LineStyle{{0x6d6056}, 5});
    place(EarlierWords, {2050, kLegendTop + 250, 2400, 170}, look::kPlainText, Hidden{},
          Words{"corrida anterior", "last run"});
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
