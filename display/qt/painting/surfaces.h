// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

#include "display/control.h"
#include "display/controls/appearance.h"

namespace display::qt {

/// Paints what a surface looks like in its box; unit is one natural pixel (ten twips) on this
/// canvas.
void paintSurface(QPainter& painter, Surface surface, const QRectF& box, qreal unit);

/// Whether a control stands on white or nearly so, where words are dark.
bool standsOnLight(const Control& control);

/// What lies behind a form that brings no panel of its own.
void paintFormGround(QPainter& painter, const QRectF& box);

}  // namespace display::qt
