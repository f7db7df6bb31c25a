// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/form.h"
#include "program/program.h"

namespace hmonitor {

/// Puts a window beside the rack, its top level with the rack's: it never covers the tuning keys.
void placeBesideRack(display::Form& window, const Program& program);

/// True when the window, as it was put beside the rack, stands whole on the screen: what does not
/// fit there is moved back over the rack. Where nobody tells of the screen nothing fits.
bool hidesNothingOfTheRack(const display::Form& window, const Program& program);

/// Puts a window over the middle of the rack, which waits behind it.
void placeOverRack(display::Form& window, const Program& program);

}  // namespace hmonitor
