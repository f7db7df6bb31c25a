// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "display/chart.h"
#include "display/qt/control_widget.h"

class QCustomPlot;
class QMouseEvent;

namespace display::qt {

/// A chart by row and column: columns of bars beside one another for each row, or a curve for each
/// column. The value under the pointer is told in a tool tip.
class ChartView final : public QWidget, public ControlWidget {
 public:
    ChartView(Chart& chart, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void dress();
    void drawBars();
    void drawCurves();
    void labelRows();
    void tellValue(QMouseEvent* event);

    Chart& chart_;
    QCustomPlot* plot_;
};

}  // namespace display::qt
