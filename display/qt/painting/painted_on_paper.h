// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "display/qt/painting/painted.h"

namespace display::qt {

/// What paper shows of a control; null for what only a hand on a screen is there for. Lists,
/// tabs, choices and previews stand on nothing that is printed, and are left out.
std::unique_ptr<Painted> paintedOnPaper(Control& control);

}  // namespace display::qt
