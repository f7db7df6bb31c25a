// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/analyzer_graphs.h"

#include <string>

#include "analyzer/frm_spectrum_analizer.h"
#include "analyzer/session_names.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/station_line.h"
#include "spectrum/class1.h"

namespace hmonitor {

namespace {

constexpr display::Words kFrequency{"Frecuencia", "Frequency"};
constexpr display::Words kLevel{"Nivel", "Level"};
/// The level at the top of the bars, in dB over a microvolt.
constexpr int kTopOfBars = 100;
constexpr display::Words kSweeps{"Barridos", "Sweeps"};

}  // namespace

/// The numbers are headed by the session, which says more than the station.
display::NumberTable frmSpectrumAnalizer::tableOf(std::string_view title) const {
    std::string whole(title);
    std::string_view session = measurement.CurrentSessionFile;
    if (session.size() > kSessionEnding.size()) session.remove_suffix(kSessionEnding.size());
    if (!session.empty()) whole.append(" ").append(session);
    display::NumberTable table = tableOfStation(program, whole);
    table.columns = {{std::string(wordsIn(language, kFrequency)), "MHz"},
                     {std::string(wordsIn(language, kLevel)), "dBuV"}};
    return table;
}

display::NumberTable frmSpectrumAnalizer::numbersOfMap() {
    display::NumberTable table = tableOf("3D Spectrum Analyzer");
    table.columns.push_back({std::string(wordsIn(language, kSweeps)), ""});
    table.columns.push_back(
        {std::string(wordsIn(language, {"Parte de los barridos", "Share of the sweeps"})), "%"});
    const int sweeps = measurement.SessionInfo.Acquisitions;
    if (sweeps <= 0) return table;
    Class1 graph = densityGraph(Picture3d.drawing, kScanStepKhz);
    graph.takeGeometry();
    for (int x = 0; x < Density::kColumns - 1; ++x) {
        for (int row = 0; row < Density::kRows - 1; ++row) {
            const double counted = measurement.SpectralDensity.at(x, row);
            // Dark places of the map have no row.
            if (densityEntry(counted, sweeps) == kNotSeen) continue;
            const display::Place cell = graph.middleOfCell(x + 1, Density::kRows - 2 - row);
            table.spots.push_back({table.rows.size(), 0, cell.x, cell.y});
            table.rows.push_back(
                {shortText(columnMhz(x)).str(), wholeText(Density::kLowestLevel + row).str(),
                 shortText(counted).str(), mask("0.00", 100 * counted / sweeps).str()});
        }
    }
    return table;
}

display::NumberTable frmSpectrumAnalizer::numbersOfBars() {
    display::NumberTable table = tableOf("Spectral Zoom Analyzer");
    if (shownBars_.empty()) return table;
    Class1 graph = sweepGraph(PictureZoom.drawing, shownColumns_, kScanStepKhz, 0);
    graph.takeGeometry();
    for (const auto& [column, bar] : shownBars_) {
        const display::Place end = graph.topOfBar(column, kTopOfBars - bar.level);
        table.spots.push_back({table.rows.size(), 1, end.x, end.y});
        table.rows.push_back({shortText(bar.mhz).str(), wholeText(bar.level).str()});
    }
    return table;
}

}  // namespace hmonitor
