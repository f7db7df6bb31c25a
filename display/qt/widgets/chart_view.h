// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "display/chart.h"
#include "display/hand.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/widgets/reading_layer.h"

class QCustomPlot;
class QMouseEvent;

namespace display::qt {

/// A chart by row and column: bars side by side for each row, or a curve for each column. The form
/// draws scale and legend; the plot fits the chart's insets, so that they meet. A reader's marks
/// show the value under the pointer; a chart that does not tell where its numbers stand shows it in
/// a tool tip.
class ChartView final : public QWidget, public ControlWidget {
 public:
    ChartView(Hand& hand, Chart& chart, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

 private:
    void dress();
    void ink();
    void drawBars();
    void drawCurves();
    void layOut();
    void labelRows();
    void writeNote();
    void drawEarlier();
    void drawChosen();
    void pointerMoved(QMouseEvent* event);
    void pointerPressed(QMouseEvent* event);
    bool pickMarked();
    void tellValue(QMouseEvent* event);
    void showRing();
    QColor colourOf(int column) const;
    /// Logical pixels for a unit of the chart's box.
    double scale() const;

    Hand& hand_;
    Chart& chart_;
    QCustomPlot* plot_;
    ReadingLayer* marks_;
    QWidget* ring_;  ///< over the plot, while it has the focus
};

}  // namespace display::qt
