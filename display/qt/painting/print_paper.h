// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMarginsF>

#include "display/page.h"

class QPdfWriter;
class QPrinter;

namespace display::qt {

/// Sets the device to upright sheets of that size, with the origin at the sheet's corner.
void layOutSheet(QPrinter& printer, const Paper& paper);
void layOutSheet(QPdfWriter& pdf, const Paper& paper);

/// The margins around a window or a sheet that fills a page, in millimetres, for a file: a printer
/// states its own.
inline constexpr QMarginsF kContentMargins{10, 10, 10, 10};

}  // namespace display::qt
