// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "core/numbers.h"
#include "program/station_line.h"

namespace hmonitor {

/// Station and date of a log: those of the loaded memory, whatever is tuned.
inline std::string stationOfLog(const Program& program, std::string_view day) {
    constexpr double kTenths = 10;
    return stationLine(program.StationState.StationName,
                       valueOf(program.StationState.MemoryFreq) / kTenths, day);
}

}  // namespace hmonitor
