// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

#include "display/controls/plot.h"

namespace display::qt {

/// A box of a plot in the painter's units, and what the painter's units are.
struct PlotPlace {
    QRectF box;
    qreal twip = 1;          ///< the painter's units in a twip of the plot
    qreal devicePixels = 1;  ///< device pixels in the painter's unit

    /// Where the curves lie, on whole device pixels.
    QRectF curves(const Plot& plot) const;
};

/// Paints a plot as the screen shows it, on any painter. Nothing is clipped but smooth curves,
/// since vector files know no clip.
void paintPlot(QPainter& painter, const Plot& plot, const PlotPlace& place);

}  // namespace display::qt
