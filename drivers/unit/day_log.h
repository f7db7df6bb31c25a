// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/unit/hour_summary.h"
#include "drivers/unit/local_time.h"

namespace hm16 {

// The day's log of one station: a file YYYYMMDD.log with one line for each hour that was measured.
//
// Give it readings as they arrive; it writes the line of an hour when the next hour begins, and
// that of an unfinished hour when it is closed. A line from an earlier run is replaced only if the
// new one was measured for at least as long. A line that cannot be written, because the disk is
// full or the file cannot be read, waits: it is tried again each minute that is measured, and each
// time another line is written.
class DayLog {
 public:
    // Files are written to `folder`.
    explicit DayLog(std::filesystem::path folder);

    // Begins or continues the log of a frequency. If the frequency changed, the hour of the last
    // one is closed first, since a line describes one station.
    std::optional<std::string> tune(double frequency, const LocalTime& now);

    // Takes readings that held for `seconds` until `now`. Returns a sentence if a line is due and
    // cannot be written.
    std::optional<std::string> add(const Readings& readings, double radiatedPower, double seconds,
                                   const LocalTime& now);

    // Writes the unfinished hour if at least a minute of it was measured, and clears it.
    std::optional<std::string> close();

 private:
    struct WaitingLine {
        std::string file;
        std::string line;
    };
    std::optional<std::string> writeWaiting();
    std::optional<std::string> write(const std::string& file, const std::string& line) const;

    std::filesystem::path folder_;
    double frequency_ = 0;
    LocalTime hour_;
    HourSummary summary_;
    std::deque<WaitingLine> waiting_;
    double sinceTried_ = 0;  // seconds of measuring
};

// The text of a day's log with `line` in it: lines in the order of their hours, at most one an
// hour; what is no such line is dropped.
std::string withHourLine(std::string_view log, std::string_view line);

}  // namespace hm16
