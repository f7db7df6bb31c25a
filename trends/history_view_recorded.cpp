// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "trends/history_view.h"

namespace hmonitor {

namespace {

int stationFor(const HistoryQuestion& question, const std::vector<int>& recorded) {
    const auto has = [&](int khz) { return std::ranges::find(recorded, khz) != recorded.end(); };
    if (has(question.station)) return question.station;
    if (has(question.tuned)) return question.tuned;
    return recorded.empty() ? 0 : recorded.front();
}

/// Columns that begin behind now have nothing in them and are not asked for.
int columnsUntil(const AskedRange& range, std::int64_t nowMs) {
    const std::int64_t until = (nowMs - range.fromMs + range.eachMs - 1) / range.eachMs;
    return static_cast<int>(std::clamp<std::int64_t>(until, 0, range.columns()));
}

/// Of a column that is not over nobody can know more than there is.
void takeForWhole(std::vector<history::Band>& bands, const AskedRange& range, std::int64_t nowMs) {
    for (std::size_t i = 0; i < bands.size(); ++i) {
        const std::int64_t end = range.fromMs + static_cast<std::int64_t>(i + 1) * range.eachMs;
        if (bands[i].knownMs > 0 && mayBeOnItsWay(bands[i], end, nowMs)) {
            bands[i].cause = history::State::Known;
        }
    }
}

}  // namespace

HistoryView readHistory(const HistoryQuestion& question) {
    const history::Query query(question.folder);
    HistoryView view{question, query.stations(), 0, {}, {}, {}, {}};
    view.station = stationFor(question, view.stations);
    if (view.station == 0) return view;
    if (const auto first = query.begin(view.station)) view.firstMs = *first * 1000;
    const AskedRange& range = question.range;
    const int columns = columnsUntil(range, question.nowMs);
    const std::int64_t to = range.fromMs + columns * range.eachMs;
    view.bands = query.bands(
        history::AskedTogether{view.station, question.figures, range.fromMs, to, columns});
    for (auto& bands : view.bands) takeForWhole(bands, range, question.nowMs);
    if (question.againMs != 0) {
        view.before = query.bands(
            history::AskedTogether{view.station, question.figures, range.fromMs - question.againMs,
                                   range.toMs - question.againMs, range.columns()});
    }
    view.events = query.events(range.fromMs / 1000, (range.toMs + 999) / 1000);
    std::erase_if(view.events, [&](const history::Event& event) {
        return event.station != 0 && event.station != view.station;
    });
    return view;
}

}  // namespace hmonitor
