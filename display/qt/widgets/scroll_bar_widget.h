// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSlider>
#include <QPainter>
#include <QWidget>

#include "display/controls/scroll_bar.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

/// The thumb of a bar of that size, in pixels.
QRectF thumbOf(const ScrollBar& bar, QSizeF size);
/// Paints the bar with its upper left corner at the painter's origin; `unit` is one pixel at the
/// natural size.
enum class Thumb { Free, Gripped, Unusable };
void paintScrollBar(QPainter& painter, const ScrollBar& bar, QSizeF size, qreal unit, Thumb thumb);

/// A scroll bar in the style of the rack. Dragging the thumb takes effect when it is released;
/// arrow and page keys, the wheel and clicks beside the thumb take effect at once.
class ScrollBarWidget final : public QAbstractSlider, public ControlWidget {
 public:
    ScrollBarWidget(QtDesktop& desktop, ScrollBar& bar, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

    const ScrollBar& bar() const { return bar_; }
    /// The thumb, in the widget's pixels.
    QRectF thumb() const { return thumbOf(bar_, size()); }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    void loseThumb();
    qreal along(QPointF at) const;
    int positionAt(qreal thumbStart) const;

    QtDesktop& desktop_;
    ScrollBar& bar_;
    bool syncing_ = false;
    bool gripped_ = false;
    qreal gripAt_ = 0;
    int wheelRest_ = 0;
};

}  // namespace display::qt
