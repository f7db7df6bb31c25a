// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/station_state.h"
#include "program/long_date.h"

namespace hmonitor {

/// The heading of the pages of spectrum and bandwidth: station, frequency and today's date. Unlike
/// on the pages of response and log, there is no additional blank before the frequency.
inline std::string spectrumPageLine(const StationState& state, const display::Desktop& desktop) {
    return state.StationName.str() + " " + shortText(valueOf(state.MemoryFreq) / 10).str() +
           " mhz  " + longDate(desktop);
}

}  // namespace hmonitor
