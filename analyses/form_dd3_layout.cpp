// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_dd3.h"
#include "analyses/response_curve.h"
#include "core/look.h"
#include "core/numbers.h"
#include "core/window_look.h"

namespace hmonitor {

using display::Align;
using display::Surface;

namespace {

constexpr float kWidth = 9000;
constexpr float kHeight = 5840;
constexpr float kPlotTop = 200;
constexpr float kPlotHeight = 3600;

/// The chart's scale: 0 dB stands at 15 and a line every 5 dB.
constexpr int kLowest = 0;
constexpr int kHighest = 30;
constexpr int kZeroDb = 15;
constexpr int kLineStep = 5;

}  // namespace

void Form_Dd3::layOut() {
    width = kWidth;
    height = kHeight;
    caption = "Frecuency response";
    place(Faceplate, {0, 0, kWidth, kHeight}).surface = Surface::Faceplate;
    place(Panel3D1, {0, 0, kWidth, look::kTitleStrip});
    Panel3D1.says = {"Mover la ventana", "Move the window"};
    place(Label1, look::titleBox(kWidth), &Panel3D1).caption = "Frecuency Response";
    Label1.font = look::kTitle;
    Label1.colour = look::kScaleColour;

    constexpr float kWellTop = 560;
    place(ChartWell, {look::kMargin, kWellTop, kWidth - 2 * look::kMargin, 4400}).surface =
        Surface::Well;
    for (int i = 0; i < static_cast<int>(ScaleNumber.size()); ++i) {
        const float y = kPlotTop + kPlotHeight * static_cast<float>(i) / 6;
        const int level = kHighest - kLineStep * i - kZeroDb;
        display::Label& number = ScaleNumber[static_cast<std::size_t>(i)];
        place(number, {80, y - 70, 520, 150}, &ChartWell).caption =
            (level > 0 ? SmallText("+") : SmallText()).append(shortText(level));
        number.align = Align::Right;
        number.font = look::kScale;
        number.colour = look::kScaleColour;
    }
    place(ScaleUnit, {80, 4130, 520, 160}, &ChartWell).caption = "dB";
    ScaleUnit.align = Align::Right;
    place(ToneUnit, {7560, 4130, 600, 160}, &ChartWell).caption = "Hz";
    const auto likeUnit = [](display::Label& unit) {
        unit.font = look::kUnit;
        unit.colour = look::kUnitColour;
    };
    likeUnit(ScaleUnit);
    likeUnit(ToneUnit);
    place(Graph1, {680, 0, 7400, kPlotTop + kPlotHeight + 300}, &ChartWell).style =
        display::Chart::Style::Curve;
    Graph1.insets = display::Chart::Insets{0, kPlotTop, 0, 300};
    Graph1.lowest = kLowest;
    Graph1.highest = kHighest;
    Graph1.gridStep = kLineStep;
    Graph1.columnCount(1);
    Graph1.says = {"Respuesta a frecuencia de la emisora", "Frequency response of the station"};

    constexpr float kKeyTop = 5180;
    place(SSCommand1, {kWidth - 3960, kKeyTop, 1700, look::kKeyHeight}).caption = "Print Form";
    SSCommand1.says = {"Página para imprimir", "Page to print"};
    SSCommand1.tabIndex = 2;
    place(Command3D2, {kWidth - 2060, kKeyTop, 1700, look::kKeyHeight}).caption = "Ok";
    Command3D2.says = {"Cerrar", "Close"};
    Command3D2.isDefault = true;
    Command3D2.isCancel = true;
    Command3D2.tabIndex = 1;
}

}  // namespace hmonitor
