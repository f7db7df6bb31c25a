// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/accessibility/arrow_focus.h"

#include <QString>

namespace display::qt {

namespace {

/// The distance from one box to another in the direction of an arrow; -1 if the other is not beyond
/// the edge in that direction, or not in line.
int wayTo(const QRect& box, const QRect& from, int arrow) {
    const bool across = arrow == Qt::Key_Left || arrow == Qt::Key_Right;
    const bool inLine = across ? box.top() <= from.bottom() && box.bottom() >= from.top()
                               : box.left() <= from.right() && box.right() >= from.left();
    if (!inLine) return -1;
    switch (arrow) {
        case Qt::Key_Left:
            return from.left() - box.right();
        case Qt::Key_Right:
            return box.left() - from.right();
        case Qt::Key_Up:
            return from.top() - box.bottom();
        default:
            return box.top() - from.bottom();
    }
}

bool takesKeyboard(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0;
}

}  // namespace

bool moveFocusByArrow(const QWidget& from, int key) {
    if (key != Qt::Key_Left && key != Qt::Key_Right && key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    QWidget* nearest = nullptr;
    int way = 0;
    int aside = 0;
    const auto all =
        from.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* widget : all) {
        if (widget == &from || !takesKeyboard(*widget)) continue;
        const QRect box = widget->geometry();
        const int itsWay = wayTo(box, from.geometry(), key);
        if (itsWay < 0) continue;
        // Of two at the same distance, the one that is better in line.
        const int itsAside = (box.center() - from.geometry().center()).manhattanLength();
        if (nearest && (itsWay > way || (itsWay == way && itsAside >= aside))) continue;
        nearest = widget;
        way = itsWay;
        aside = itsAside;
    }
    if (nearest) nearest->setFocus(Qt::OtherFocusReason);
    return true;
}

}  // namespace display::qt
