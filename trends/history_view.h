// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "history/query.h"
#include "trends/view_range.h"

namespace hmonitor {

/// What a window wants to know of the recorded time.
struct HistoryQuestion {
    std::filesystem::path folder;
    int station = 0;  ///< kHz; 0: the first that was recorded
    int tuned = 0;    ///< kHz; the one that is meant where `station` is 0, if it was recorded
    std::vector<std::size_t> figures;  ///< places in the registry
    AskedRange range;
    std::int64_t againMs = 0;  ///< how much earlier the curve to compare with lies; 0 for none
    std::int64_t nowMs = 0;    ///< what lies behind it cannot have been recorded yet
};

/// What was measured so shortly ago may not be written yet: that it is missing is no hole.
inline constexpr std::int64_t kNotWrittenYetMs = 10'000;
/// Whether that may be so of what is missing in a column which ends at `endMs`.
inline bool mayBeOnItsWay(const history::Band& band, std::int64_t endMs, std::int64_t nowMs) {
    return band.cause == history::kNotRecorded && endMs > nowMs - kNotWrittenYetMs;
}

/// What there is of it. Bands have one element for each column of the range.
struct HistoryView {
    HistoryQuestion asked;
    std::vector<int> stations;
    int station = 0;
    std::vector<std::vector<history::Band>> bands;   ///< by figure
    std::vector<std::vector<history::Band>> before;  ///< the same, `againMs` earlier; may be empty
    std::vector<history::Event> events;
    std::optional<std::int64_t> firstMs;  ///< since when anything is there

    /// How much of the time of the figures is known, 0 to 1, between two moments.
    double knownShare(std::int64_t fromMs, std::int64_t toMs) const;
    /// The column in which a moment lies, or none.
    std::optional<std::size_t> columnAt(std::int64_t ms) const;
};

/// Reads it, from disk: for a thread of its own.
HistoryView readHistory(const HistoryQuestion& question);

}  // namespace hmonitor
