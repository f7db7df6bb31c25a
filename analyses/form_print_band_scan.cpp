// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_print_band_scan.h"

#include "analyses/form_band_scanner.h"
#include "core/language.h"
#include "core/numbers.h"

namespace hmonitor {

Form_PrintBandScan::Form_PrintBandScan(Program& itsProgram)
    : ProgramForm(itsProgram, "Form_PrintBandScan") {}

void Form_PrintBandScan::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    if (!program.Form_BandSCanner.filled() || !program.Form_BandSCanner.peek().loaded()) return;
    // A page that was unloaded comes back with the scan that its window shows.
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
    constexpr float kWidth = 12000;
    constexpr float kHeight = 7600;
    width = kWidth;
    height = kHeight;
    place(Sheet, {0, 0, kWidth, kHeight}).surface = display::Surface::Sheet;
    place(Label2, {360, 700, kWidth - 720, 240}).colour = display::kBlack;
    Label2.font = display::Font{160};
    place(Graph1, {360, 1200, kWidth - 720, 4400});
    Graph1.insets = display::Chart::Insets{280, 200, 280, 300};
    Graph1.lowest = 30.f;
    Graph1.highest = 100.f;
    Graph1.rowCount(kScanRows);
    for (std::size_t i = 0; i < ScanLegend::kColumns; ++i) {
        const float x = 700 + 1080 * static_cast<float>(i);
        place(legend.stroke(i), x, 5980, x + 300, 5980).thickness = 4;
        place(legend.Label_Serie[i], {x + 380, 5890, 500, 180}).colour = display::kBlack;
    }
    legend.colour(Graph1, ScanGround::Paper);
    showOption(scanOption(ScanSpacing::Odd));
}

}  // namespace hmonitor
