// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>

#include "display/form.h"

namespace display::qt {

// Forms and their parts as their model stands, on any painter: a printer, a file, a picture. No
// window has to be on the screen. Text stays text and lines stay lines; a unit of the painter is a
// twip. `devicePixelsPerTwip` says how fine the device is there: edges are put on its whole pixels.

/// All that a loaded form shows, its upper left corner at the painter's origin.
void paintForm(QPainter& painter, const Form& form, qreal devicePixelsPerTwip);

/// A panel with what stands on it, its upper left corner at the painter's origin: a sheet of a
/// page without the keys beside it.
void paintSheet(QPainter& painter, const Panel& sheet, qreal devicePixelsPerTwip);

/// One control alone, a chart or a picture box, its upper left corner at the painter's origin.
void paintControl(QPainter& painter, Control& control, qreal devicePixelsPerTwip);

}  // namespace display::qt
