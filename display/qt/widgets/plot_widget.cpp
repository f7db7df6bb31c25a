// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/plot_widget.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QString>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "display/qt/widgets/key_widgets.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

/// What Qt gives for one notch of a wheel.
constexpr double kNotch = 120;
/// What one notch divides the range by.
constexpr double kZoom = 1.25;
constexpr double kShift = 1.0 / 12;

std::optional<PlotKey> keyOf(const QKeyEvent& event) {
    const bool mark = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool other = event.modifiers().testFlag(Qt::ControlModifier);
    switch (event.key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return PlotKey::In;
        case Qt::Key_Minus:
            return PlotKey::Out;
        case Qt::Key_Left:
            return other ? PlotKey::OtherLeft : mark ? PlotKey::MarkLeft : PlotKey::Left;
        case Qt::Key_Right:
            return other ? PlotKey::OtherRight : mark ? PlotKey::MarkRight : PlotKey::Right;
        case Qt::Key_Home:
            return PlotKey::First;
        case Qt::Key_End:
            return PlotKey::Last;
        case Qt::Key_Delete:
            return PlotKey::NoMarks;
        default:
            return std::nullopt;
    }
}

}  // namespace

PlotWidget::PlotWidget(QtDesktop& desktop, Plot& plot, QWidget* parent)
    : QWidget(parent), desktop_(desktop), plot_(plot) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
}

PlotPlace PlotWidget::place() const {
    const qreal twip = plot_.width > 0.f ? width() / qreal{plot_.width} : 0;
    return {QRectF(rect()), twip, devicePixelRatioF()};
}

double PlotWidget::shareAt(qreal x) const {
    const QRectF curves = place().curves(plot_);
    return curves.width() > 0 ? (x - curves.left()) / curves.width() : 0;
}

bool PlotWidget::onCurves(const QPointF& at) const {
    return place().curves(plot_).contains(at);
}

void PlotWidget::sync() {
    // A click chooses the plot that is copied.
    setFocusPolicy(focusPolicyOf(plot_, Qt::ClickFocus));
    if (QAccessible::isActive() && plot_.reading) {
        const QString read = QString::fromStdString(plot_.reading());
        if (accessibleDescription() != read) setAccessibleDescription(read);
    }
    update();
}

void PlotWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPlot(painter, plot_, place());
    if (hasFocus() && desktop_.keyboardUsed()) paintFocusRing(painter, rect());
}

void PlotWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint turned = event->angleDelta();
    const bool across = turned.x() != 0 || event->modifiers().testFlag(Qt::ShiftModifier);
    const double notches = (turned.x() != 0 ? turned.x() : turned.y()) / kNotch;
    if (notches == 0) return;
    if (across) {
        desktop_.hand().shift(plot_, -notches * kShift);
    } else {
        const double at = std::clamp(shareAt(event->position().x()), 0.0, 1.0);
        desktop_.hand().zoom(plot_, std::pow(kZoom, notches), at);
    }
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !onCurves(event->position())) return;
    pressed_ = true;
    dragged_ = false;
    pressedAt_ = draggedTo_ = event->position().x();
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_) return;
    const qreal x = event->position().x();
    if (!dragged_ && std::abs(x - pressedAt_) < QApplication::startDragDistance()) return;
    dragged_ = true;
    setCursor(Qt::ClosedHandCursor);
    desktop_.hand().shift(plot_, shareAt(draggedTo_) - shareAt(x));
    draggedTo_ = x;
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_) return;
    letGo();
    if (dragged_) return;
    const bool other = event->modifiers().testFlag(Qt::ShiftModifier);
    desktop_.hand().point(plot_, other ? 1 : 0, shareAt(event->position().x()));
}

void PlotWidget::letGo() {
    pressed_ = false;
    unsetCursor();
}

/// No release follows to a widget that has gone under the pointer.
void PlotWidget::hideEvent(QHideEvent* event) {
    letGo();
    QWidget::hideEvent(event);
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
    if (const auto key = keyOf(*event)) {
        desktop_.hand().press(plot_, *key);
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool PlotWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !plot_.tell) return QWidget::event(event);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const std::string told = onCurves(help.pos())
                                 ? plot_.tell(plot_.x.get().valueAt(shareAt(help.pos().x())))
                                 : std::string();
    if (told.empty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(help.globalPos(), QString::fromStdString(told), this);
    }
    return true;
}

void PlotWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PlotWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace display::qt
