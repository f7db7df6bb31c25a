// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/accessibility/keyboard_watch.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace display::qt {

KeyboardWatch::KeyboardWatch() {
    QApplication::instance()->installEventFilter(this);
}

bool KeyboardWatch::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::KeyPress) use(true);
    if (event->type() == QEvent::MouseButtonPress) use(false);
    return QObject::eventFilter(receiver, event);
}

void KeyboardWatch::use(bool keyboard) {
    if (used_ == keyboard) return;
    used_ = keyboard;
    if (QWidget* focus = QApplication::focusWidget()) focus->update();
}

}  // namespace display::qt
