// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "display/qt/painting/painted.h"

namespace display::qt {

/// How a control is painted on paper; null for controls that are not printed: lists, tabs, options
/// and previews, which no printed sheet contains.
std::unique_ptr<Painted> paintedOnPaper(Control& control);

}  // namespace display::qt
