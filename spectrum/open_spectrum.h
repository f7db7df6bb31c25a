// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

namespace hmonitor {

/// Closes the open windows of the channel spectrum, as their own keys do. The start leaves the
/// spectrum open beside the live rack, but only one window can use the unit: each key that opens an
/// analysis calls this first. So the spectrum's own key then shows the tuned station.
void closeChannelSpectrum(Program& program);

/// Shows the spectrum measured at the start, once the rack has its position, if there was a carrier
/// and the window covers nothing of the rack.
void showChannelSpectrumOfStart(Program& program);

}  // namespace hmonitor
