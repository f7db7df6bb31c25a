// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <stdexcept>
#include <vector>

#include "history/database.h"
#include "history/event.h"
#include "history/figure_columns.h"
#include "history/schema.h"
#include "history/second_block.h"

namespace history {

/// A minute of one station in one epoch; `minute` is its first second.
struct MinuteKey {
    int station = 0;  ///< kHz
    std::int64_t minute = 0;
    int epoch = 0;

    auto operator<=>(const MinuteKey&) const = default;

    static MinuteKey of(const Second& second);
};

/// Thrown if a file was written by a newer version of the program.
class NewerFile : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The seconds of one day, for readers. Nothing in the file is trusted: a block whose length or CRC
/// is wrong reads as gaps.
class DayRows {
 public:
    explicit DayRows(Database& database);

    const FigureColumns& columns() const { return columns_; }

    /// All minutes with a second in [begin, end), each once; minutes that are not packed yet are
    /// included.
    std::vector<MinuteKey> minutes(std::int64_t begin, std::int64_t end) const;
    std::vector<int> stations() const;
    std::vector<Event> events(std::int64_t begin, std::int64_t end) const;

    /// One of the requested figures (`which`: its index among them) in one second.
    using Take =
        std::function<void(std::int64_t t, int epoch, std::size_t which, const FigureSecond&)>;
    /// The seconds of some figures (by their indices in the registry) in [begin, end); each row is
    /// read once. Of each figure packed seconds come first, in the order of time, then those that
    /// are not packed yet.
    void seconds(int station, std::int64_t begin, std::int64_t end,
                 std::span<const std::size_t> figures, const Take& take) const;
    /// The highest epoch, and the first second after everything recorded in it.
    struct Told {
        int epoch = 0;
        std::int64_t end = INT64_MIN;
        auto operator<=>(const Told&) const = default;
    };
    Told lastTold() const;
    /// All figures of a minute in the order of time, seconds that are not packed yet included.
    std::vector<Second> minute(const MinuteKey& key) const;

 private:
    void blocks(int station, std::int64_t begin, std::int64_t end,
                std::span<const std::size_t> figures, const Take& take) const;
    void tail(int station, std::int64_t begin, std::int64_t end,
              std::span<const std::size_t> figures, const Take& take) const;

    Database& database_;
    FigureColumns columns_;
};

/// A packed minute and its seconds.
struct ClosedMinute {
    MinuteKey key;
    std::vector<Second> seconds;
};

/// The seconds of one day, for the recorder.
class DayFile {
 public:
    /// Opens or creates the file. If this throws because the file is damaged or from a newer
    /// version, the file is unchanged.
    DayFile(const std::filesystem::path& path, Flush flush, const char* vfs);

    const std::filesystem::path& path() const { return path_; }
    DayRows& rows() { return rows_; }
    Database& database() { return database_; }

    /// Writes seconds and events, and packs minutes that are over, all or nothing.
    std::vector<ClosedMinute> keep(std::span<const Second> seconds, std::span<const Event> events,
                                   std::span<const MinuteKey> over);
    /// Minutes that are not packed yet.
    std::vector<MinuteKey> openMinutes();

    /// The day is over: makes the file complete in itself, without a journal beside it, so that it
    /// can be copied.
    void finish();

 private:
    void put(const Second& second, Statement& insert);
    ClosedMinute pack(const MinuteKey& key);

    std::filesystem::path path_;
    Database database_;
    bool ready_;
    DayRows rows_;
};

}  // namespace history
