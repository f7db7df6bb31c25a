// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/numbers.h"
#include "program/language.h"

namespace hmonitor {

/// The note of a window that the unit refused to go on with a run, at that frequency in units of
/// 100 kHz.
inline std::string refusedRun(display::Language language, float tenths) {
    const std::string mhz = shortText(tenths / 10).str();
    return language == display::Language::Spanish
               ? "La unidad rechazó " + mhz + " MHz: la corrida terminó allí."
               : "The unit refused " + mhz + " MHz: the run ended there.";
}

}  // namespace hmonitor
