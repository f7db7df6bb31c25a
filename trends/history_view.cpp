// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/history_view.h"

#include <algorithm>
#include <cstdint>

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

double HistoryView::knownShare(std::int64_t fromMs, std::int64_t toMs) const {
    double known = 0;
    double whole = 0;
    for (const auto& columns : bands) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const std::int64_t begin =
                asked.range.fromMs + static_cast<std::int64_t>(i) * asked.range.eachMs;
            const std::int64_t end = std::min(begin + asked.range.eachMs, asked.nowMs);
            if (end <= fromMs || begin >= toMs || end <= begin) continue;
            // A column across an edge counts as it does inside.
            const double inside =
                static_cast<double>(std::min(end, toMs) - std::max(begin, fromMs));
            const double share =
                std::min(1.0, columns[i].knownMs / static_cast<double>(end - begin));
            whole += inside;
            known += inside * share;
        }
    }
    return whole > 0 ? known / whole : 0;
}

std::optional<std::size_t> HistoryView::columnAt(std::int64_t ms) const {
    if (ms < asked.range.fromMs || ms >= asked.range.toMs) return std::nullopt;
    return static_cast<std::size_t>((ms - asked.range.fromMs) / asked.range.eachMs);
}

}  // namespace hmonitor
