// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

#include "display/control.h"
#include "display/controls/appearance.h"

namespace display::qt {

/// Paints a surface in its box; `unit` is one pixel at the natural size (ten twips) in the
/// painter's units.
void paintSurface(QPainter& painter, Surface surface, const QRectF& box, qreal unit);

/// Whether a control stands on a white or nearly white background, where text is dark.
bool standsOnLight(const Control& control);

/// Paints the background of a form that has no panel of its own.
void paintFormGround(QPainter& painter, const QRectF& box);

}  // namespace display::qt
