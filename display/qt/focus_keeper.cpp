// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/focus_keeper.h"

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
}

void FocusKeeper::settle() {
    if (!waiting_ || !waiting_->isEnabled() || !waiting_->isVisible()) return;
    QWidget* key = waiting_;
    waiting_ = nullptr;
    key->activateWindow();
    key->setFocus(Qt::OtherFocusReason);
}

}  // namespace display::qt
