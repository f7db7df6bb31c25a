// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/picture_box_widget.h"

#include <optional>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "display/qt/accessibility/arrow_focus.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

PictureBoxWidget::PictureBoxWidget(QtDesktop& desktop, PictureBox& box, QWidget* parent)
    : QWidget(parent), desktop_(desktop), box_(box), marks_(new ReadingLayer(box, this)) {
    setMouseTracking(true);
    setFocusPolicy(focusPolicyOf(box));
}

void PictureBoxWidget::sync() {
    // A click chooses the drawing that is copied.
    setFocusPolicy(focusPolicyOf(box_, isRead() ? Qt::ClickFocus : Qt::NoFocus));
    marks_->sync();
}

void PictureBoxWidget::paintEvent(QPaintEvent*) {
    if (!hasFocus() || (!isRead() && !desktop_.keyboardUsed())) return;
    QPainter painter(this);
    paintFocusRing(painter, rect());
}

void PictureBoxWidget::resizeEvent(QResizeEvent*) {
    marks_->sync();
}

void PictureBoxWidget::mousePressEvent(QMouseEvent* event) {
    if (!isRead()) return;
    marks_->point(event->position());
    if (event->button() == Qt::RightButton) marks_->fix();
    // The form may be moved by what lies below.
    event->ignore();
}

void PictureBoxWidget::mouseMoveEvent(QMouseEvent* event) {
    if (isRead()) marks_->point(event->position());
    event->ignore();
}

void PictureBoxWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (box_.interactive() && event->button() == Qt::LeftButton) desktop_.hand().doubleClick(box_);
}

void PictureBoxWidget::leaveEvent(QEvent*) {
    marks_->leave();
}

void PictureBoxWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (isRead() && cameByTab(*event)) marks_->begin(std::nullopt);
}

void PictureBoxWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    marks_->leave();
}

void PictureBoxWidget::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isRead() && marks_->key(*event)) return;
    if (isRead() && moveFocusByArrow(*this, event->key())) return;
    if (enters && box_.interactive()) {
        desktop_.hand().doubleClick(box_);
    } else {
        event->ignore();
    }
}

}  // namespace display::qt
