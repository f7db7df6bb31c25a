// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

#include "display/chart.h"

namespace display::qt {

/// The colours of a chart or a plot: on the dark well of a window, or on white paper.
struct ChartInk {
    QColor ground, line, words, shadow;
    static ChartInk of(const Control& drawing);
};

/// Sizes in a chart, in twips.
inline constexpr double kChartLabelTwips = 110;
inline constexpr double kChartNoteTwips = 200;

/// Paints a chart in a box as the screen shows it, on any painter. `unit` is a twip of the chart in
/// the painter's units.
void paintChart(QPainter& painter, const Chart& chart, const QRectF& box, qreal unit);

}  // namespace display::qt
