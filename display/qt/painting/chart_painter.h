// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

#include "display/chart.h"

namespace display::qt {

/// What a chart is drawn with, by the ground that it stands on: the dark well of a window, or white
/// paper.
struct ChartInk {
    QColor ground, line, words;
    static ChartInk of(const Chart& chart);
};

/// Heights and widths in a chart, in twips at its natural size.
inline constexpr double kChartLabelTwips = 110;
inline constexpr double kChartNoteTwips = 200;

/// Paints a chart in a box as the screen shows it, on any painter, without a window. `unit` is a
/// twip of the chart in the painter's units.
void paintChart(QPainter& painter, const Chart& chart, const QRectF& box, qreal unit);

}  // namespace display::qt
