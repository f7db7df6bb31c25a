// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/unit/hour_summary.h"
#include "drivers/unit/local_time.h"

namespace hm16 {

// The day's log of one station: a file YYYYMMDD.log with one line for each hour that was measured.
//
// Feed it with readings as they come; it writes the line of an hour when the next hour begins, and
// that of an unfinished hour when it is closed. An hour that has a line already, from an earlier
// run, gets the new one only if that was measured for at least as long.
class DayLog {
 public:
    // Files go into `folder`.
    explicit DayLog(std::filesystem::path folder);

    // Begins or goes on with the log of a frequency. Another frequency than the last one closes
    // that one's hour first, for a line tells of one station.
    std::optional<std::string> tune(double frequency, const LocalTime& now);

    // Takes readings that stood for `seconds` until `now`. Gives a sentence when the hour is over
    // and its line cannot be written.
    std::optional<std::string> add(const Readings& readings, double radiatedPower, double seconds,
                                   const LocalTime& now);

    // Writes the unfinished hour if at least a minute of it was measured, and forgets it.
    std::optional<std::string> close();

 private:
    std::filesystem::path folder_;
    double frequency_ = 0;
    LocalTime hour_;
    HourSummary summary_;
};

// The text of a day's log with `line` in it: lines in the order of their hours, at most one an
// hour; what is no such line is dropped.
std::string withHourLine(std::string_view log, std::string_view line);

}  // namespace hm16
