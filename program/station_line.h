// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "display/number_table.h"
#include "program/program.h"

namespace hmonitor {

/// Station, frequency and date for the head of a page and for file names: "RADIO UNO 98.1 MHz
/// 2026-05-04". The name may be empty.
std::string stationLine(std::string_view name, double mhz, std::string_view day);
/// The same for the tuned station and today. A frequency that was not loaded from a memory has no
/// name.
std::string stationLine(const Program& program);

/// What stands in the head of a window: the tuned station and, where the run is known, its time:
/// "RADIO UNO 98.1 MHz · 2026-05-04 18:05".
std::string stationHead(const Program& program, const std::optional<display::Date>& run);
/// When a file of results was last written, as the clock on the wall read it then; none without it.
std::optional<display::Date> writtenAt(const Program& program, std::string_view fileName);

/// A table for the tuned station, without columns and rows yet.
display::NumberTable tableOfStation(const Program& program, std::string_view title);

}  // namespace hmonitor
