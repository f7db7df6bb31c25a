// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/corner_grip.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "display/qt/painting/palette.h"

namespace display::qt {

CornerGrip::CornerGrip(QWidget* parent, std::function<void(QPoint)> begin,
                       std::function<void(QPoint)> drag, std::function<void()> end)
    : QWidget(parent), begin_(std::move(begin)), drag_(std::move(drag)), end_(std::move(end)) {
    setObjectName("CornerGrip");
    setCursor(Qt::SizeFDiagCursor);
    setFocusPolicy(Qt::NoFocus);
}

void CornerGrip::settle(int size) {
    const QRect box(parentWidget()->width() - size, parentWidget()->height() - size, size, size);
    if (geometry() != box) setGeometry(box);
    raise();
}

void CornerGrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal size = width();
    for (const qreal share : {0.3, 0.55, 0.8}) {
        const QPointF low(size * share, size * 0.92), high(size * 0.92, size * share);
        painter.setPen(QPen(QColor(kKeyTextOff), size / 14));
        painter.drawLine(low, high);
    }
}

void CornerGrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    held_ = true;
    begin_(event->globalPosition().toPoint());
}

void CornerGrip::mouseMoveEvent(QMouseEvent* event) {
    if (held_) drag_(event->globalPosition().toPoint());
}

void CornerGrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !std::exchange(held_, false)) return;
    end_();
}

}  // namespace display::qt
