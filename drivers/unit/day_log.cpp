// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/day_log.h"

#include <cerrno>
#include <map>
#include <set>
#include <utility>

#include "base/number_in_text.h"
#include "base/read_file.h"
#include "base/utf8_path.h"
#include "drivers/unit/replace_file.h"

namespace hm16 {

namespace {

// The shortest part of an hour that is logged.
constexpr double kLeastSeconds = 60;
// How long until a line that could not be written is tried again.
constexpr double kTryEvery = 60;
// A month of hours; who lets a disk stand full for longer loses the oldest.
constexpr std::size_t kMostWaiting = 24 * std::size_t{31};
constexpr std::size_t kMostFailures = 3;

struct HourLine {
    int hour = -1;
    double minutes = 0;
};

// The hour of a line and its sixth field; hour -1 if this is no line of an hour.
HourLine readHourLine(std::string_view line) {
    const auto blank = line.find(' ');
    const auto hour = base::numberIn(line.substr(0, blank));
    if (blank > 2 || !hour || *hour < 0 || *hour > 23) return {};  // none is far beyond
    for (int field = 1; field <= 6; ++field) {
        const auto next = line.find(' ');
        if (next == std::string_view::npos) break;
        line.remove_prefix(next + 1);
    }
    return {static_cast<int>(*hour), base::numberIn(line.substr(0, line.find(' '))).value_or(0)};
}

}  // namespace

std::string withHourLine(std::string_view log, std::string_view line) {
    std::map<int, std::pair<double, std::string>> hours;
    const auto take = [&hours](std::string_view text) {
        if (text.ends_with('\r')) text.remove_suffix(1);
        const HourLine read = readHourLine(text);
        if (read.hour < 0) return;
        const auto found = hours.find(read.hour);
        if (found != hours.end() && found->second.first > read.minutes) return;
        hours[read.hour] = {read.minutes, std::string(text)};
    };
    while (!log.empty()) {
        const auto end = log.find('\n');
        take(log.substr(0, end));
        log.remove_prefix(end == std::string_view::npos ? log.size() : end + 1);
    }
    take(line);
    std::string text;
    for (const auto& [hour, entry] : hours) text += entry.second + "\r\n";
    return text;
}

DayLog::DayLog(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::optional<std::string> DayLog::tune(double frequency, const LocalTime& now) {
    std::optional<std::string> fault;
    if (frequency != frequency_) {
        fault = close();
        frequency_ = frequency;
    }
    if (!(summary_.seconds() > 0)) hour_ = now;
    return fault;
}

std::optional<std::string> DayLog::add(const Readings& readings, double radiatedPower,
                                       double seconds, const LocalTime& now) {
    std::optional<std::string> fault;
    if (!sameHour(now, hour_)) {
        fault = close();
        hour_ = now;
    }
    summary_.add(readings, radiatedPower, seconds);
    sinceTried_ += seconds;
    if (!waiting_.empty() && sinceTried_ >= kTryEvery) fault = writeWaiting();
    return fault;
}

std::optional<std::string> DayLog::close() {
    const HourSummary summary = std::exchange(summary_, {});
    if (summary.seconds() >= kLeastSeconds) {
        waiting_.push_back({dayMark(hour_) + ".log", summary.line(hour_.hour)});
        if (waiting_.size() > kMostWaiting) waiting_.pop_front();
    }
    return writeWaiting();
}

std::optional<std::string> DayLog::writeWaiting() {
    sinceTried_ = 0;
    std::optional<std::string> first;
    std::set<std::string> failed;
    std::erase_if(waiting_, [&](const WaitingLine& next) {
        // One day's file may be unreadable by itself; where several fail, it is the disk.
        if (failed.size() >= kMostFailures || failed.contains(next.file)) return false;
        const auto fault = write(next.file, next.line);
        if (!fault) return true;
        failed.insert(next.file);
        if (!first) first = fault;
        return false;
    });
    return first;
}

std::optional<std::string> DayLog::write(const std::string& file, const std::string& line) const {
    const auto path = folder_ / file;
    const auto log = base::readFile(path);
    // What cannot be read may hold a day: it is no empty one.
    if (!log && log.reason != ENOENT) return base::notRead(base::utf8Of(path), log.reason) + ".";
    return replaceFile(path, withHourLine(log.bytes, line));
}

}  // namespace hm16
