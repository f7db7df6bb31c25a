// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "display/controls/plot.h"
#include "display/qt/painting/plot_painter.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

/// A plot on the screen. The wheel zooms about the pointer, with Shift it moves the range, as a
/// drag does; a click sets the first mark, with Shift the second. Keys: + and -, arrows, Home, End;
/// with Shift or Ctrl the arrows move a mark; Del takes the marks away.
class PlotWidget final : public QWidget, public ControlWidget {
 public:
    PlotWidget(QtDesktop& desktop, Plot& plot, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    void letGo();
    PlotPlace place() const;
    double shareAt(qreal x) const;
    bool onCurves(const QPointF& at) const;

    QtDesktop& desktop_;
    Plot& plot_;
    bool pressed_ = false;
    bool dragged_ = false;
    qreal pressedAt_ = 0;
    qreal draggedTo_ = 0;
};

}  // namespace display::qt
