// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "display/form.h"

namespace display::qt {

/// Remembers which key opened a window, and gives the focus back to it when the window has gone
/// and the key can take it again. Brings the focus where a form gave it.
class FocusKeeper {
 public:
    void opened(const Form& form);
    void closed(const Form& form);
    /// The form's wish, kept until its widget can take the focus or the form goes away.
    void give(const Control& control) { wanted_ = &control; }
    const Control* wanted() const { return wanted_; }
    /// Where the wish is to be met, or null as long as the control has no widget.
    void arrive(QWidget* widget);
    /// Called once a frame: the key may have been disabled while the window stood.
    void settle();

 private:
    struct Opener {
        const Form* form;
        QPointer<QWidget> key;
    };
    std::vector<Opener> openers_;
    QPointer<QWidget> waiting_;
    const Control* wanted_ = nullptr;
};

}  // namespace display::qt
