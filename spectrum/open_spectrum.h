// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

namespace hmonitor {

/// Closes what stands of the channel spectrum, as by its own keys. The start leaves it open beside
/// the living rack, and the unit serves one thing at a time: each door of the rack asks for this
/// before it opens. The spectrum's own door so shows the station that is tuned now.
void closeChannelSpectrum(Program& program);

/// Shows the spectrum of the start, once the rack has its place: where a carrier was measured and
/// the window hides nothing of the rack.
void showChannelSpectrumOfStart(Program& program);

}  // namespace hmonitor
