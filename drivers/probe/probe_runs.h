// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <string>

#include "drivers/hm16.h"
#include "drivers/probe/probe_options.h"

namespace hm16::probe {

// Runs what the options ask for on a library that HM_Init has opened and writes the CSV to `out`.
// Gives an empty text when it measured, else one sentence. Leaves the library in mode idle.
std::string run(const HM16_Functions& driver, const Options& options, std::ostream& out);

}  // namespace hm16::probe
