// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <string>

#include "drivers/hm16_more.h"
#include "drivers/hm16_report.h"
#include "drivers/probe/probe_options.h"

namespace hm16::probe {

// The library's HM16_Extension, null if it has none.

// Lists the extensions, as comments, and the figures with their units and ranges. Returns an empty
// text, or a sentence if there are no figures.
std::string listFigures(HM16_ExtensionFunction extension, std::ostream& out);

// Tunes and prints each slot; for an unknown figure it prints the reason. Returns an empty text, or
// a sentence.
std::string printSlots(const HM16_Functions& driver, HM16_ExtensionFunction extension,
                       HM16_StepFunction step, const Options& options, std::ostream& out);

// The name of a state of HM16_Slot.
std::string stateWords(int state);

}  // namespace hm16::probe
