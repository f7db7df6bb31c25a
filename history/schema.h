// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "history/database.h"
#include "history/event.h"
#include "history/figure_columns.h"

namespace history {

inline constexpr std::int64_t kApplicationId = 0x484D3136;  // "HM16"
inline constexpr std::int64_t kSchemaVersion = 1;

/// The type of a file, by the two numbers in its header.
enum class FileKind { Empty, Ours, Newer, Foreign };
FileKind kindOf(Database& database);

/// How thoroughly a flush writes: everything, or nothing (for tests that cannot lose a disk).
enum class Flush { Full, Off };

/// Prepares a file for writing: header, tables, the registry's figures.
void prepareDay(Database& database, Flush flush);
void prepareIndex(Database& database, Flush flush);

/// The figures that a file names, matched with the registry.
FigureColumns readFigures(Database& database);

/// Adds a station that is not in the file yet.
void addStation(Database& database, int khz);
void addEvent(Database& database, const Event& event);
/// Events with begin <= t < end, in the order of time. Texts are cut at 200 bytes.
std::vector<Event> readEvents(Database& database, std::int64_t begin, std::int64_t end);

void setAbout(Database& database, std::string_view key, std::string_view value);

}  // namespace history
