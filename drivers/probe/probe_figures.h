// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <string>

#include "drivers/hm16_more.h"
#include "drivers/hm16_report.h"
#include "drivers/probe/probe_options.h"

namespace hm16::probe {

// What a library says beyond the nineteen functions: its HM16_Extension, null where it has none.

// Lists the extensions, as comments, and the figures with their units and ranges. Gives an empty
// text, or one sentence when there are no figures.
std::string listFigures(HM16_ExtensionFunction extension, std::ostream& out);

// Tunes and prints each slot, with the words for why a figure is not known in its place. Gives an
// empty text, or one sentence.
std::string printSlots(const HM16_Functions& driver, HM16_ExtensionFunction extension,
                       HM16_StepFunction step, const Options& options, std::ostream& out);

// The words for a state of HM16_Slot.
std::string stateWords(int state);

}  // namespace hm16::probe
