// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/retention.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <string>
#include <system_error>

namespace history {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kDaySeconds = 86400;
constexpr int kMinutesAtOnce = 30;  // days

std::uint64_t freeIn(const fs::path& folder, const Retention& retention) {
    if (retention.freeBytes) return retention.freeBytes(folder);
    std::error_code error;
    const fs::space_info space = fs::space(folder, error);
    return error ? retention.leastFreeBytes : space.available;
}

/// What can be read of a folder: a range for would throw where the disk fails.
std::vector<fs::path> pathsIn(const fs::path& folder) {
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        paths.push_back(at->path());
    }
    return paths;
}

/// A day's file with all that carries its date: journals, damaged ones.
void removeDay(const fs::path& folder, const CivilDay& day) {
    for (const fs::path& path : pathsIn(folder)) {
        std::error_code error;
        if (path.filename().string().starts_with(day.text() + ".")) fs::remove(path, error);
    }
}

void removeMinutes(const fs::path& folder, const Retention& retention, std::int64_t now,
                   IndexFile& index) {
    index.removeBefore(kMinute, now - retention.minutesDays * kDaySeconds);
    for (int days = retention.minutesDays - kMinutesAtOnce; days > 0; days -= kMinutesAtOnce) {
        if (bytesIn(folder) <= retention.budgetBytes) return;
        index.removeBefore(kMinute, now - days * kDaySeconds);
        index.database().run("PRAGMA wal_checkpoint(TRUNCATE)");
    }
}

constexpr std::string_view kAside = ".damaged";

/// The days that have a file of ours, oldest first: also those of which only a damaged one is left.
std::set<CivilDay> datedDays(const fs::path& folder) {
    std::set<CivilDay> days;
    for (const fs::path& path : pathsIn(folder)) {
        const std::string name = path.filename().string();
        const std::string_view dated = std::string_view(name).substr(0, name.find('.'));
        const bool isOurs = path.extension() == kDayEnding || name.find(kAside) != name.npos;
        if (const auto day = CivilDay::parse(dated); day && isOurs) days.insert(*day);
    }
    return days;
}

/// An index has no day: it goes when it has lain there for as long as a day is kept.
void removeOldIndexes(const fs::path& folder, std::int64_t until) {
    using namespace std::chrono;
    const auto last = file_clock::from_sys(sys_seconds(seconds(until)));
    for (const fs::path& path : pathsIn(folder)) {
        const std::string name = path.filename().string();
        if (!name.starts_with("index.") || name.find(kAside) == name.npos) continue;
        std::error_code unknown;
        const auto written = fs::last_write_time(path, unknown);
        if (!unknown && written < last) fs::remove(path, unknown);
    }
}

}  // namespace

std::vector<CivilDay> daysIn(const fs::path& folder) {
    std::vector<CivilDay> days;
    for (const fs::path& path : pathsIn(folder)) {
        if (path.extension() != kDayEnding) continue;
        if (const auto day = CivilDay::parse(path.stem().string())) days.push_back(*day);
    }
    std::ranges::sort(days);
    return days;
}

std::uint64_t bytesIn(const fs::path& folder) {
    std::uint64_t bytes = 0;
    for (const fs::path& path : pathsIn(folder)) {
        std::error_code none;
        const auto size = fs::file_size(path, none);
        if (!none) bytes += size;
    }
    return bytes;
}

bool thinOut(const fs::path& folder, const Retention& retention, std::int64_t now,
             IndexFile* index) {
    const CivilDay today = CivilDay::of(now);
    const CivilDay yesterday = CivilDay::of(now - kDaySeconds);
    const CivilDay first = CivilDay::of(now - retention.secondsDays * kDaySeconds);
    removeOldIndexes(folder, now - retention.secondsDays * kDaySeconds);
    for (const CivilDay& day : datedDays(folder)) {
        const bool isOld = day < first;
        const bool isTooMuch = day < today && bytesIn(folder) > retention.budgetBytes;
        const bool isInTheWay =
            day < yesterday && freeIn(folder, retention) < retention.leastFreeBytes;
        if (isOld || isTooMuch || isInTheWay) removeDay(folder, day);
    }
    try {
        if (index) removeMinutes(folder, retention, now, *index);
    } catch (const DatabaseFault&) {
        // Old minutes stay an hour longer.
    }
    return freeIn(folder, retention) < retention.leastFreeBytes;
}

}  // namespace history
