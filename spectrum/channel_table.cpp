// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/channel_table.h"

#include "core/numbers.h"
#include "program/language.h"
#include "program/station_line.h"
#include "spectrum/channel_graph.h"

namespace hmonitor {

void ShownSpectrum::begin(int itsColumns, int itsStepKhz) {
    columns = itsColumns;
    stepKhz = itsStepKhz;
    below.assign(columns > 0 ? static_cast<std::size_t>(columns) : 0, {});
}

void ShownSpectrum::put(int i, std::string_view value) {
    if (i < 1 || i > columns) return;
    below[static_cast<std::size_t>(i - 1)] = value;
}

display::NumberTable ShownSpectrum::table(const Program& program,
                                          display::Language language) const {
    display::NumberTable table =
        tableOfStation(program, wordsIn(language, {"Espectro del canal", "Channel Spectrum"}));
    table.columns = {{std::string(wordsIn(language, {"Desvío", "Offset"})), "kHz"},
                     {std::string(wordsIn(language, {"Nivel", "Level"})), "dB"}};
    const int centre = columns / 2;
    for (int i = 0; i < columns; ++i) {
        const std::string& value = below[static_cast<std::size_t>(i)];
        if (value.empty()) continue;
        const double level = valueOf(value);
        table.rows.push_back(
            {wholeText((i - centre) * stepKhz).str(), shortText(level == 0 ? 0 : -level).str()});
    }
    return table;
}

display::NumberTable ShownSpectrum::tableOn(display::Canvas& canvas, const Program& program,
                                            display::Language language) const {
    display::NumberTable table = this->table(program, language);
    if (columns <= 0) return table;
    Class1 graph = channelGraph(canvas, columns, stepKhz);
    graph.takeGeometry();
    for (int i = 1; i <= columns; ++i) {
        const std::string& value = below[static_cast<std::size_t>(i - 1)];
        if (value.empty()) continue;
        const display::Place top = graph.topOfBar(i, toWhole(valueOf(value)));
        table.spots.push_back({table.spots.size(), 1, top.x, top.y});
    }
    return table;
}

}  // namespace hmonitor
