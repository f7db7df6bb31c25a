// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/history_table.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "trends/history_words.h"

namespace hmonitor {

namespace {

using display::Language;
using display::NumberTable;
using display::Words;
using history::Band;

void addHead(NumberTable& table, const figures::Figure& figure, Language language) {
    const std::string name(wordsIn(language, Words{figure.name.spanish, figure.name.english}));
    const auto column = [&](const Words& of, const char* unit) {
        table.columns.push_back({name + ": " + std::string(wordsIn(language, of)), unit});
    };
    column({"media", "mean"}, figure.unit);
    column({"mínimo", "lowest"}, figure.unit);
    column({"máximo", "highest"}, figure.unit);
    column({"tiempo conocido", "known time"}, "s");
    column({"estado", "state"}, "");
}

std::string number(float value) {
    return base::decimalText(static_cast<double>(value), 3);
}

void addCells(std::vector<std::string>& row, const Band& band, Language language) {
    const bool known = band.knownMs > 0;
    for (const float value : {band.mean, band.lowest, band.highest})
        row.push_back(known ? number(value) : std::string());
    row.push_back(base::decimalText(band.knownMs / 1000, 3));
    row.emplace_back(band.cause == history::State::Known
                         ? wordsIn(language, Words{"conocido", "known"})
                         : causeWords(band.cause, language));
}

}  // namespace

NumberTable historyTable(const HistoryView& view, std::int64_t fromMs, std::int64_t toMs,
                         std::string_view station, Language language) {
    NumberTable table;
    table.title = wordsIn(language, Words{"Historial", "History"});
    table.station = station;
    table.columns = {{std::string(wordsIn(language, Words{"Hora", "Time"})), "UTC"},
                     {std::string(wordsIn(language, Words{"Hora local", "Local time"})), ""}};
    for (const std::size_t figure : view.asked.figures)
        addHead(table, figures::all()[figure], language);
    const AskedRange& range = view.asked.range;
    const std::size_t columns = view.bands.empty() ? 0 : view.bands.front().size();
    for (std::size_t i = 0; i < columns; ++i) {
        const std::int64_t begin = range.fromMs + static_cast<std::int64_t>(i) * range.eachMs;
        if (begin + range.eachMs <= fromMs || begin >= toMs) continue;
        std::vector<std::string> row = {utcStamp(begin), localStamp(begin)};
        for (const auto& bands : view.bands) addCells(row, bands[i], language);
        table.rows.push_back(std::move(row));
    }
    return table;
}

}  // namespace hmonitor
