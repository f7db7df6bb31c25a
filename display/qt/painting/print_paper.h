// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMarginsF>

#include "display/page.h"

class QPdfWriter;
class QPrinter;

namespace display::qt {

/// Upright sheets of that size, whose origin is the sheet's corner.
void layOutSheet(QPrinter& printer, const Paper& paper);
void layOutSheet(QPdfWriter& pdf, const Paper& paper);

/// What stays free around a window or a sheet that fills a page, in millimetres: a file has no
/// printer that says what it cannot reach.
inline constexpr QMarginsF kContentMargins{10, 10, 10, 10};

}  // namespace display::qt
