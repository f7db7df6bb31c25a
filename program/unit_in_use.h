// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/form.h"

namespace hmonitor {

/// Which window is using the unit, so that it does not measure for the panels, and since when.
struct UnitInUse {
    const display::Form* window = nullptr;  ///< null while the unit measures for the panels
    display::Time since{0};                 ///< by the desktop's clock
};

}  // namespace hmonitor
