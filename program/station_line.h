// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// A table for the tuned station, without columns and rows yet.
display::NumberTable tableOfStation(const Program& program, std::string_view title);

}  // namespace hmonitor
