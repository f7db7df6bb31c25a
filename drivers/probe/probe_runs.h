// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <string>

#include "drivers/hm16.h"
#include "drivers/hm16_report.h"
#include "drivers/probe/probe_options.h"

namespace hm16::probe {

// Runs what the options ask for on a library that HM_Init has opened and writes the CSV to `out`.
// Gives an empty text when it measured, else one sentence. Leaves the library in mode idle.
//
// With `step`, time is the signal's time: instead of waiting, the library is told to measure on as
// fast as it can. The run ends early when a recording ends.
std::string run(const HM16_Functions& driver, HM16_StepFunction step, const Options& options,
                std::ostream& out);

}  // namespace hm16::probe
