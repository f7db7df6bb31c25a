// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/accessibility/focus_keeper.h"

#include <QApplication>

namespace display::qt {

void FocusKeeper::opened(const Form& form) {
    std::erase_if(openers_, [&form](const Opener& opener) { return opener.form == &form; });
    if (QWidget* key = QApplication::focusWidget()) openers_.push_back({&form, key});
}

void FocusKeeper::closed(const Form& form) {
    for (const Opener& opener : openers_) {
        if (opener.form == &form) waiting_ = opener.key;
    }
    std::erase_if(openers_, [&form](const Opener& opener) { return opener.form == &form; });
    if (wanted_ && &wanted_->form() == &form) wanted_ = nullptr;
}

void FocusKeeper::arrive(QWidget* widget) {
    if (!widget || !widget->isEnabled() || !widget->isVisible()) return;
    wanted_ = nullptr;
    // While another window is active, the focus moves when this window is activated.
    widget->setFocus(Qt::OtherFocusReason);
}

void FocusKeeper::settle() {
    if (!waiting_ || !waiting_->isEnabled() || !waiting_->isVisible()) return;
    QWidget* key = waiting_;
    waiting_ = nullptr;
    key->activateWindow();
    key->setFocus(Qt::OtherFocusReason);
}

}  // namespace display::qt
