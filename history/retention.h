// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "history/civil_day.h"
#include "history/index_file.h"

namespace history {

inline constexpr std::string_view kDayEnding = ".hm16day";

/// How much is kept. Hours and days are kept for ever. If a limit of bytes and one of time
/// disagree, the bytes decide.
struct Retention {
    int secondsDays = 35;
    int minutesDays = 730;
    std::uint64_t budgetBytes = 2'000'000'000;
    std::uint64_t leastFreeBytes = 1'000'000'000;
    /// The free space where a folder is; empty: ask the system.
    std::function<std::uint64_t(const std::filesystem::path&)> freeBytes;
};

/// The days that have a file of seconds, oldest first.
std::vector<CivilDay> daysIn(const std::filesystem::path& folder);

/// The bytes of all files in a folder.
std::uint64_t bytesIn(const std::filesystem::path& folder);

/// Removes what is too old or too much: first seconds, then minutes; never the day of `now`, and
/// for lack of space never the day before. True while the disk has less free space than it should.
bool thinOut(const std::filesystem::path& folder, const Retention& retention, std::int64_t now,
             IndexFile* index);

}  // namespace history
