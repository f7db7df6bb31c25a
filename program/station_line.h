// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "display/number_table.h"
#include "program/program.h"

namespace hmonitor {

/// Whose page or table it is, as files are headed and named: "RADIO UNO 98.1 MHz 2026-05-04". A
/// name may be empty.
std::string stationLine(std::string_view name, double mhz, std::string_view day);
/// The same of the station in use, today. A frequency that no memory was loaded for has no name.
std::string stationLine(const Program& program);

/// A table of the station in use, still without columns and rows.
display::NumberTable tableOfStation(const Program& program, std::string_view title);

}  // namespace hmonitor
