// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form7.h"

#include "analyses/form_dd3.h"
#include "analyses/response_curve.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/look.h"
#include "program/make_form.h"

namespace hmonitor {

Form7::Form7(Program& itsProgram) : ChartSheet(itsProgram, "Form7") {
    Graph1.numbers = [this] { return ResponseCurve::numbers(program, Graph1); };
}

void Form7::onLoad() {
    constexpr float kFirstBrandLeft = 5760;
    SheetForm::onLoad();
    if (firstBrand()) Picture2.left = kFirstBrandLeft;
    nameModel(Label3);
    Label1.caption =
        wordsIn(language, {"Medición al aire de la emisora", "On-air measurement of the station"});
    // A page that was unloaded shows the curve of its window again.
    if (program.Form_Dd3.filled() && program.Form_Dd3.peek().loaded())
        Graph1.take(program.Form_Dd3.peek().Graph1);
}

void Form7::layOut() {
    constexpr float kSheetWidth = 9400;
    constexpr float kPlotHeight = 3900;
    constexpr float kPlotTop = 160;
    constexpr float kRowLabels = 300;
    constexpr float kSheetHeight =
        kSheetBody + kPlotTop + kPlotHeight + kRowLabels + 200 + kSheetFoot;
    /// The chart's scale: 0 dB has the value 15, and there is a line every 5 dB.
    constexpr int kHighest = 30;
    constexpr int kZeroDb = 15;
    constexpr int kLineStep = 5;

    layOutSheet(kSheetWidth, kSheetHeight, "Frecuency Response");
    caption = "Frecuency response";
    placeHeading(Label3, "  Frecuency Response ");

    constexpr float kChartLeft = kSheetMargin + 480;
    placeChart({kChartLeft, kSheetBody, kSheetWidth - kSheetMargin - kChartLeft,
                kPlotTop + kPlotHeight + kRowLabels});
    for (int i = 0; i < static_cast<int>(ScaleNumber.size()); ++i) {
        const int level = kHighest - kLineStep * i - kZeroDb;
        placeScale(ScaleNumber[static_cast<std::size_t>(i)],
                   kSheetBody + kPlotTop + kPlotHeight * static_cast<float>(i) / 6,
                   (level > 0 ? SmallText("+") : SmallText()).append(shortText(level)));
    }
    placeScale(ScaleUnit, kSheetBody + 20, "dB");
    placeScale(ToneUnit, kSheetBody + kPlotTop + kPlotHeight + kRowLabels + 160, "Hz");
    ToneUnit.left = kSheetWidth - kSheetMargin - 440;
    Graph1.style = display::Chart::Style::Curve;
    Graph1.insets = display::Chart::Insets{0, kPlotTop, 0, kRowLabels};
    Graph1.lowest = 0.f;
    Graph1.highest = kHighest;
    Graph1.gridStep = kLineStep;
    Graph1.columnCount(1);
    Graph1.seriesColour(1, display::kBlack);
    Graph1.says = {"Respuesta a frecuencia de la emisora", "Frequency response of the station"};
}

template MadeForm makeForm(Program&, Slot<Form7>&);

}  // namespace hmonitor
