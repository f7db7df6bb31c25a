// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "history/event.h"
#include "history/query_rows.h"

namespace history {

/// One column of a plot: the figure during that time.
struct Band {
    float lowest = 0;
    float mean = 0;  ///< by the figure's kind
    float highest = 0;
    double knownMs = 0;          ///< 0: the three above are invalid
    State cause = kNotRecorded;  ///< why the rest is not known; Known if nothing is missing
};

/// What plots over one time axis need: figures of one station, in that many columns.
struct AskedTogether {
    int station = 0;                   ///< kHz
    std::vector<std::size_t> figures;  ///< their indices in the registry
    std::int64_t fromMs = 0;
    std::int64_t toMs = 0;  ///< since 1970, UTC; after fromMs
    int columns = 0;
};

/// The same for one figure.
struct Asked {
    int station = 0;         ///< kHz
    std::size_t figure = 0;  ///< its index in the registry
    std::int64_t fromMs = 0;
    std::int64_t toMs = 0;  ///< since 1970, UTC; after fromMs
    int columns = 0;
};

/// The value of one figure at a mark.
struct MarkValue {
    Step step = Step::Second;  ///< the length of the span that the value is of
    SpanValue value;
};

/// Reads a folder of history, also while it is being recorded to. It changes nothing; a file that
/// cannot be read counts as empty.
class Query {
 public:
    explicit Query(std::filesystem::path folder, const char* vfs = nullptr);

    /// All recorded stations in kHz, lowest first.
    std::vector<int> stations() const;
    /// The earliest time recorded of any station, in seconds since 1970: the begin of its first
    /// span or, without spans, of the first day that has a file.
    std::optional<std::int64_t> begin(int station) const;
    /// Of each figure one band for each column, made of seconds, minutes, hours or days, whichever
    /// suits the column's length; where the fine ones are gone, of the next coarser ones. Each row
    /// of the files is read once, for all figures.
    std::vector<std::vector<Band>> bands(const AskedTogether& asked) const;
    std::vector<Band> bands(const Asked& asked) const;
    /// All figures of the registry in the second t, else in its minute or hour.
    std::vector<std::optional<MarkValue>> at(int station, std::int64_t t) const;
    /// Events with from <= t < to, in seconds since 1970.
    std::vector<Event> events(std::int64_t from, std::int64_t to) const;

 private:
    std::filesystem::path folder_;
    const char* vfs_;
};

}  // namespace history
