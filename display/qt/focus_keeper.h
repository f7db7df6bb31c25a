// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "display/form.h"

namespace display::qt {

/// Remembers which key opened a window, and gives the focus back to it when the window has gone
/// and the key can take it again.
class FocusKeeper {
 public:
    void opened(const Form& form);
    void closed(const Form& form);
    /// Called once a frame: the key may have been disabled while the window stood.
    void settle();

 private:
    struct Opener {
        const Form* form;
        QPointer<QWidget> key;
    };
    std::vector<Opener> openers_;
    QPointer<QWidget> waiting_;
};

}  // namespace display::qt
