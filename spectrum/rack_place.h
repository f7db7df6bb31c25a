// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program.h"
#include "display/form.h"

namespace hmonitor {

/// Puts a window beside the rack, its top level with the rack's: it never covers the tuning keys.
void placeBesideRack(display::Form& window, const Program& program);

/// Puts a window over the middle of the rack, which waits behind it.
void placeOverRack(display::Form& window, const Program& program);

}  // namespace hmonitor
