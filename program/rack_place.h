// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/form.h"
#include "program/program.h"

namespace hmonitor {

/// Places a window beside the rack, at the height of its top, so that it does not cover the tuning
/// keys.
void placeBesideRack(display::Form& window, const Program& program);

/// True when a window placed beside the rack fits the screen there; otherwise the desktop moves it
/// over the rack. False where the size of the screen is unknown.
bool hidesNothingOfTheRack(const display::Form& window, const Program& program);

/// Places a window over the middle of the rack, for a dialog; on the screen whole where it fits,
/// and its upper left corner in any case.
void placeOverRack(display::Form& window, const Program& program);

}  // namespace hmonitor
