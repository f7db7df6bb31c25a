// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>

#include "display/form.h"

namespace display::qt {

// Paints forms and their parts from the model, on any painter: a printer, a file, an image. No
// window has to be on the screen. Text stays text and lines stay lines; a unit of the painter is a
// twip. `devicePixelsPerTwip` is the resolution of the device: edges are put on whole device
// pixels.

/// Paints a loaded form, its upper left corner at the painter's origin.
void paintForm(QPainter& painter, const Form& form, qreal devicePixelsPerTwip);

/// Paints a panel with its contents, its upper left corner at the painter's origin: the sheet of a
/// page, without the keys beside it.
void paintSheet(QPainter& painter, const Panel& sheet, qreal devicePixelsPerTwip);

/// Paints one control, a chart or a picture box, its upper left corner at the painter's origin.
void paintControl(QPainter& painter, Control& control, qreal devicePixelsPerTwip);

}  // namespace display::qt
