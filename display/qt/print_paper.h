// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/page.h"

class QPrinter;

namespace display::qt {

/// Upright sheets of that size, whose origin is the sheet's corner.
void layOutSheet(QPrinter& printer, const Paper& paper);

}  // namespace display::qt
