// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "history/day_file.h"
#include "history/span_block.h"

namespace history {

inline constexpr const char* kIndexName = "index.sqlite";
inline constexpr std::int64_t kHour = 3600;
inline constexpr std::int64_t kDayStep = 86400;  ///< the key of days, whatever their length

/// Spans of minutes, hours and days, for readers. Nothing in the file is trusted.
class IndexRows {
 public:
    explicit IndexRows(Database& database);

    const FigureColumns& columns() const { return columns_; }
    std::vector<int> stations() const;
    std::vector<Event> events(std::int64_t begin, std::int64_t end) const;
    bool has(int station, std::int64_t step, std::int64_t t, int epoch) const;
    /// The begin of the first and of the last span of a step; none if there are no spans.
    std::optional<std::int64_t> first(int station, std::int64_t step) const;
    std::optional<std::int64_t> last(int station, std::int64_t step) const;

    /// One of the requested figures (`which`: its index among them) in one span; none for a damaged
    /// span.
    using Take = std::function<void(std::int64_t t, std::int64_t seconds, int epoch,
                                    std::size_t which, const std::optional<SpanValue>&)>;
    /// Some figures (by their indices in the registry) of all spans of a step that begin in
    /// [begin, end); each row is read once.
    void spans(int station, std::int64_t step, std::int64_t begin, std::int64_t end,
               std::span<const std::size_t> figures, const Take& take) const;

 private:
    std::optional<std::int64_t> outermost(int station, std::int64_t step, const char* order) const;

    Database& database_;
    FigureColumns columns_;
};

/// The index, for the recorder.
class IndexFile {
 public:
    IndexFile(const std::filesystem::path& path, Flush flush, const char* vfs);

    IndexRows& rows() { return rows_; }
    Database& database() { return database_; }

    struct StepSpan {
        std::int64_t step = kMinute;
        Span span;
    };
    void keep(std::span<const StepSpan> spans, std::span<const Event> events);
    /// Adds the events that are not in the file yet.
    void keepMissing(std::span<const Event> events);
    void removeBefore(std::int64_t step, std::int64_t t);

    /// The highest epoch of a whole day.
    int lastEpoch();

    /// Whether everything is in it that the files of the days had when it was made. A program that
    /// was ended while it made an index left one without it.
    bool hasAllDays();
    void tellAllDays();

 private:
    std::filesystem::path path_;
    Database database_;
    bool ready_;
    IndexRows rows_;
};

}  // namespace history
