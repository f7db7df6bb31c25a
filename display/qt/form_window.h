// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QWidget>

#include "display/qt/form_view.h"

namespace display::qt {

/// A form of its own on the screen, with the window manager's frame; without one if the form has
/// no caption, as a splash. Its place and the model's left and top follow one another.
class FormWindow final : public QWidget {
 public:
    FormWindow(QtDesktop& desktop, Form& form);

    FormView& view() { return view_; }
    /// Puts it where the model says, over the other window (or the middle of the screen) when the
    /// model says nothing, and shows it.
    void appear(const QWidget* over);
    /// Takes over caption, place and frame after a change.
    void sync();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

 private:
    void placeFirst(const QWidget* over);
    Qt::WindowFlags wantedFlags() const;

    QtDesktop& desktop_;
    Form& form_;
    FormView view_;
    bool placing_ = false;
    QElapsedTimer shownSince_;
};

}  // namespace display::qt
