// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "display/form.h"

namespace display::qt {

/// Remembers which widget opened a window, and gives the focus back to it when the window is closed
/// and the widget can take it again. Also moves the focus to the control that a form asked for.
class FocusKeeper {
 public:
    void opened(const Form& form);
    void closed(const Form& form);
    /// Keeps the form's request until the control's widget can take the focus or the form is
    /// hidden.
    void give(const Control& control) { wanted_ = &control; }
    const Control* wanted() const { return wanted_; }
    /// The widget of the requested control, or null while it has none.
    void arrive(QWidget* widget);
    /// Called once a frame: the widget may have been disabled while the window was open.
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
