// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/scroll_bar_widget.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "display/controls/scroll_bar.h"
#include "display/qt/painting/palette.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/widgets/view_scale.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

constexpr qreal kSmallestThumb = 26;
constexpr int kWheelNotch = 120;

qreal lengthOf(const ScrollBar& bar, QSizeF size) {
    return bar.vertical ? size.height() : size.width();
}

qreal thumbLengthOf(const ScrollBar& bar, QSizeF size) {
    const qreal length = lengthOf(bar, size);
    const qreal steps = bar.maximum - bar.minimum + bar.pageStep;
    const qreal share = steps > 0 ? length * bar.pageStep / steps : length;
    return std::clamp(share, std::min(kSmallestThumb, length), length);
}

}  // namespace

QRectF thumbOf(const ScrollBar& bar, QSizeF size) {
    const qreal thumb = thumbLengthOf(bar, size);
    const int steps = bar.maximum - bar.minimum;
    const qreal room = lengthOf(bar, size) - thumb;
    const qreal from = steps > 0 ? room * (bar.thumb - bar.minimum) / steps : 0;
    return bar.vertical ? QRectF(0, from, size.width(), thumb)
                        : QRectF(from, 0, thumb, size.height());
}

void paintScrollBar(QPainter& painter, const ScrollBar& bar, QSizeF size, qreal unit, Thumb thumb) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    const QRectF groove = QRectF(QPointF(), size).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal radius = std::min(std::min(groove.width(), groove.height()) / 2, 9 * unit);
    painter.setPen(QPen(QColor(0x0a, 0x0c, 0x0f), 1));
    painter.setBrush(QColor(kWellBottom));
    painter.drawRoundedRect(groove, radius, radius);
    const QRectF grip = thumbOf(bar, size).adjusted(2, 2, -2, -2);
    const bool gripped = thumb == Thumb::Gripped;
    QLinearGradient metal(grip.topLeft(), grip.bottomLeft());
    metal.setColorAt(0, QColor(gripped ? 0xff7d8896 : 0xff65707e));
    metal.setColorAt(1, QColor(gripped ? 0xff515b68 : 0xff3b434e));
    painter.setPen(QPen(QColor(0x10, 0x12, 0x15), 1));
    painter.setBrush(thumb == Thumb::Unusable ? QBrush(QColor(0x2a, 0x2f, 0x37)) : QBrush(metal));
    painter.drawRoundedRect(grip, radius - 2, radius - 2);
}

ScrollBarWidget::ScrollBarWidget(QtDesktop& desktop, ScrollBar& bar, QWidget* parent)
    : QAbstractSlider(parent), desktop_(desktop), bar_(bar) {
    // A value set by an assistive tool arrives as a change of Qt's value.
    connect(this, &QAbstractSlider::valueChanged, this, [this](int value) {
        if (!syncing_) desktop_.hand().set(bar_, value);
    });
}

void ScrollBarWidget::sync() {
    syncing_ = true;
    setFocusPolicy(focusPolicyOf(bar_, Qt::ClickFocus));
    setOrientation(bar_.vertical ? Qt::Vertical : Qt::Horizontal);
    setRange(bar_.minimum, bar_.maximum);
    setPageStep(bar_.pageStep);
    setValue(bar_.thumb);
    syncing_ = false;
    update();
}

qreal ScrollBarWidget::along(QPointF at) const {
    return bar_.vertical ? at.y() : at.x();
}

int ScrollBarWidget::positionAt(qreal thumbStart) const {
    const qreal room = lengthOf(bar_, size()) - thumbLengthOf(bar_, size());
    if (room <= 0) return bar_.minimum;
    const qreal share = std::clamp(thumbStart / room, 0.0, 1.0);
    return bar_.minimum + static_cast<int>(std::lround(share * (bar_.maximum - bar_.minimum)));
}

void ScrollBarWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Thumb usable = isEnabled() ? Thumb::Free : Thumb::Unusable;
    paintScrollBar(painter, bar_, size(), viewScale(*this, desktop_).px(10),
                   gripped_ ? Thumb::Gripped : usable);
    if (hasFocus() && desktop_.keyboardUsed()) paintFocusRing(painter, rect());
}

void ScrollBarWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QRectF grip = thumb();
    const qreal at = along(event->position());
    if (grip.contains(event->position())) {
        gripped_ = true;
        gripAt_ = at - along(grip.topLeft());
        update();
    } else {
        desktop_.hand().page(bar_, at < along(grip.topLeft()) ? -1 : 1);
    }
}

void ScrollBarWidget::mouseMoveEvent(QMouseEvent* event) {
    if (gripped_) desktop_.hand().drag(bar_, positionAt(along(event->position()) - gripAt_));
}

void ScrollBarWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !gripped_) return;
    gripped_ = false;
    desktop_.hand().drop(bar_);
    update();
}

void ScrollBarWidget::loseThumb() {
    if (!gripped_) return;
    gripped_ = false;
    bar_.loseThumb();
    desktop_.frameSoon();
}

void ScrollBarWidget::changeEvent(QEvent* event) {
    // A disabled widget gets no release event.
    if (event->type() == QEvent::EnabledChange && !isEnabled()) loseThumb();
    QAbstractSlider::changeEvent(event);
}

void ScrollBarWidget::hideEvent(QHideEvent* event) {
    loseThumb();
    QAbstractSlider::hideEvent(event);
}

void ScrollBarWidget::wheelEvent(QWheelEvent* event) {
    // On a vertical bar the Up key goes towards the start; on a horizontal one, towards higher
    // values.
    const QPoint turned = event->angleDelta();
    wheelRest_ += turned.y() != 0 ? turned.y() : -turned.x();
    const int notches = wheelRest_ / kWheelNotch;
    wheelRest_ -= notches * kWheelNotch;
    if (notches != 0) desktop_.hand().scroll(bar_, bar_.vertical ? -notches : notches);
    event->accept();
}

void ScrollBarWidget::keyPressEvent(QKeyEvent* event) {
    const bool upright = bar_.vertical;
    switch (event->key()) {
        case Qt::Key_Left:
            desktop_.hand().scroll(bar_, -1);
            break;
        case Qt::Key_Right:
            desktop_.hand().scroll(bar_, 1);
            break;
        case Qt::Key_Up:
            desktop_.hand().scroll(bar_, upright ? -1 : 1);
            break;
        case Qt::Key_Down:
            desktop_.hand().scroll(bar_, upright ? 1 : -1);
            break;
        case Qt::Key_PageUp:
            desktop_.hand().page(bar_, upright ? -1 : 1);
            break;
        case Qt::Key_PageDown:
            desktop_.hand().page(bar_, upright ? 1 : -1);
            break;
        case Qt::Key_Home:
            desktop_.hand().set(bar_, bar_.minimum);
            break;
        case Qt::Key_End:
            desktop_.hand().set(bar_, bar_.maximum);
            break;
        default:
            event->ignore();
    }
}

}  // namespace display::qt
