// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "history/event.h"
#include "history/query_rows.h"

namespace history {

/// One column of a plot: what a figure was while it lasted.
struct Band {
    float lowest = 0;
    float mean = 0;  ///< by the figure's kind
    float highest = 0;
    double knownMs = 0;          ///< 0: the three above say nothing
    State cause = kNotRecorded;  ///< why the rest is not known; Known where nothing is missing
};

/// What a plot asks for: one figure of one station between two times, in so many columns.
struct Asked {
    int station = 0;         ///< kHz
    std::size_t figure = 0;  ///< its place in the registry
    std::int64_t fromMs = 0;
    std::int64_t toMs = 0;  ///< since 1970, UTC; behind fromMs
    int columns = 0;
};

/// What one figure was at a mark.
struct MarkValue {
    Step step = Step::Second;  ///< how long a span the value stands for
    SpanValue value;
};

/// Looks into a folder of history, also while somebody records there. Takes nothing, changes
/// nothing; a file that cannot be read tells nothing.
class Query {
 public:
    explicit Query(std::filesystem::path folder, const char* vfs = nullptr);

    /// Stations that were ever recorded, kHz, rising.
    std::vector<int> stations() const;
    /// Since when anything of a station is there: the begin of its first span or, while there is
    /// none, of the first day with a file. Seconds since 1970.
    std::optional<std::int64_t> begin(int station) const;
    /// One band a column. From seconds, minutes, hours or days, whatever a column is as long as;
    /// where the fine ones are gone, from the next that are there.
    std::vector<Band> bands(const Asked& asked) const;
    /// All figures of the registry in the second t, else in its minute or hour.
    std::vector<std::optional<MarkValue>> at(int station, std::int64_t t) const;
    /// Events with from <= t < to, seconds since 1970.
    std::vector<Event> events(std::int64_t from, std::int64_t to) const;

 private:
    std::filesystem::path folder_;
    const char* vfs_;
};

}  // namespace history
