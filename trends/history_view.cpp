// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/history_view.h"

#include <algorithm>
#include <cstdint>

namespace hmonitor {

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
            known += inside * share;
            const bool isFresh = mayBeOnItsWay(columns[i], end, asked.nowMs);
            const double missing = inside * (1 - share);
            const double coming = isFresh ? double{kNotWrittenYetMs} : 0;
            whole += inside - std::min(missing, coming);
        }
    }
    return whole > 0 ? known / whole : 0;
}

std::optional<std::size_t> HistoryView::columnAt(std::int64_t ms) const {
    if (ms < asked.range.fromMs || ms >= asked.range.toMs) return std::nullopt;
    return static_cast<std::size_t>((ms - asked.range.fromMs) / asked.range.eachMs);
}

}  // namespace hmonitor
