// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_dd3.h"
#include "analyses/response_curve.h"
#include "core/numbers.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kWidth = 9000;
constexpr float kHeight = 5840;
constexpr float kPlotTop = 200;
constexpr float kPlotHeight = 3600;

/// The chart's scale: 0 dB has the value 15, and there is a line every 5 dB.
constexpr int kLowest = 0;
constexpr int kHighest = 30;
constexpr int kZeroDb = 15;
constexpr int kLineStep = 5;

}  // namespace

void Form_Dd3::layOut() {
    layWindow(kWidth, kHeight, "Frecuency response", Faceplate);
    layTitle(Panel3D1, Label1, "Frecuency Response", nullptr, &Station);
    place(ChartWell, {look::kMargin, 560, kWidth - 2 * look::kMargin, 4400}, Surface::Well);
    for (int i = 0; i < static_cast<int>(ScaleNumber.size()); ++i) {
        const float y = kPlotTop + kPlotHeight * static_cast<float>(i) / 6;
        const int level = kHighest - kLineStep * i - kZeroDb;
        place(ScaleNumber[i], {80, y - 70, 520, 150}, &ChartWell, look::kScaleText.right(),
              (level > 0 ? SmallText("+") : SmallText()).append(shortText(level)));
    }
    place(ScaleUnit, {80, 4130, 520, 160}, &ChartWell, look::kUnitText.right(), "dB");
    place(ToneUnit, {7560, 4130, 600, 160}, &ChartWell, look::kUnitText, "Hz");
    place(Graph1, {680, 0, 7400, kPlotTop + kPlotHeight + 300}, &ChartWell,
          Says{"Respuesta a frecuencia de la emisora", "Frequency response of the station"});
    Graph1.style = Chart::Style::Curve;
    Graph1.insets = Chart::Insets{0, kPlotTop, 0, 300};
    Graph1.lowest = kLowest;
    Graph1.highest = kHighest;
    Graph1.gridStep = kLineStep;
    Graph1.columnCount(1);
    Graph1.pictureBox = ChartWell.boxOnForm();

    constexpr float kKeyTop = 5180;
    place(SSCommand1, {kWidth - 3960, kKeyTop, 1700, look::kKeyHeight}, "Print Form",
          Says{"Página para imprimir", "Page to print"});
    place(Command3D2, {kWidth - 2060, kKeyTop, 1700, look::kKeyHeight}, "Ok", Role::Default,
          Role::Cancel, Says{"Cerrar", "Close"});
    tabOrder(Command3D2, SSCommand1, Graph1);
}

}  // namespace hmonitor
