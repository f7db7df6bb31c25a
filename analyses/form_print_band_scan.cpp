// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_print_band_scan.h"

#include "analyses/form_band_scanner.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/make_form.h"

namespace hmonitor {

Form_PrintBandScan::Form_PrintBandScan(Program& itsProgram)
    : ChartSheet(itsProgram, "Form_PrintBandScan") {
    Graph1.numbers = [this] { return program.Form_BandSCanner.peek().numbersShown(); };
}

void Form_PrintBandScan::onLoad() {
    SheetForm::onLoad();
    nameModel(Label18);
    Label1.caption = wordsIn(language, {"Niveles de la banda a la entrada del receptor",
                                        "Levels of the band at the receiver's input"});
    if (!program.Form_BandSCanner.filled() || !program.Form_BandSCanner.peek().loaded()) return;
    // A page that was unloaded shows the scan of its window again.
    const Form_BandSCanner& window = program.Form_BandSCanner.peek();
    Graph1.take(window.Graph1);
    showOption(window.option());
}

void Form_PrintBandScan::showOption(const ScanOption& option) {
    for (int i = 0; i < kScanRows; ++i) {
        Graph1.row = i + 1;
        Graph1.rowLabel(rowMhz(option, i + 1));
        Graph1.rowLabelColumn(1);
    }
    Graph1.columnCount(option.columns);
    legend.show(option);
}

void Form_PrintBandScan::layOut() {
    constexpr float kSheetWidth = 12000;
    constexpr float kPlotTop = 160;
    constexpr float kPlotHeight = 4200;
    constexpr float kRowLabels = 300;
    constexpr float kChartHeight = kPlotTop + kPlotHeight + kRowLabels;
    constexpr float kLegend = kSheetBody + kChartHeight + 260;
    constexpr float kSheetHeight = kLegend + 340 + kSheetFoot;

    layOutSheet(kSheetWidth, kSheetHeight, "Band Scanner");
    caption = "Form5";
    placeHeading(Label18, "  Band Scanner");

    constexpr float kChartLeft = kSheetMargin + 480;
    placeChart({kChartLeft, kSheetBody, kSheetWidth - kSheetMargin - kChartLeft, kChartHeight});
    for (std::size_t i = 0; i < Scale.size(); ++i)
        placeScale(Scale[i], kSheetBody + kPlotTop + kPlotHeight * static_cast<float>(i) / 7,
                   wholeText(100 - 10 * static_cast<int>(i)));
    placeScale(Label3, kSheetBody + 20, "dB");
    Graph1.insets = display::Chart::Insets{60, kPlotTop, 60, kRowLabels};
    Graph1.lowest = 30.f;
    Graph1.highest = 100.f;
    Graph1.rowCount(kScanRows);
    Graph1.says = {"Niveles de la banda", "Levels of the band"};
    for (std::size_t i = 0; i < ScanLegend::kColumns; ++i) {
        const float x = kChartLeft + 1080 * static_cast<float>(i);
        place(legend.stroke(i), x, kLegend + 90, x + 300, kLegend + 90, &Sheet).thickness = 4;
        place(legend.Label_Serie[i], {x + 380, kLegend, 500, 180}, &Sheet).colour = display::kBlack;
    }
    legend.colour(Graph1, ScanGround::Paper);
    showOption(scanOption(ScanSpacing::Odd));
}

template MadeForm makeForm(Program&, Slot<Form_PrintBandScan>&);

}  // namespace hmonitor
