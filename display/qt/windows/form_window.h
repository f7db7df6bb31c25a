// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QWidget>

#include "display/qt/windows/form_view.h"
#include "display/qt/windows/window_flash.h"

namespace display::qt {

/// A form of its own on the screen, with the window manager's frame; without one if the form has
/// no caption, as a splash. Its place and the model's left and top follow one another.
class FormWindow final : public QWidget {
 public:
    FormWindow(QtDesktop& desktop, Form& form);

    FormView& view() { return view_; }
    /// Puts it where the model says, over the other window (or the middle of the screen) when the
    /// model says nothing, and shows it, always above a second one.
    void appear(const QWidget* over, const QWidget* above);
    /// Milliseconds since it was shown the last time.
    qint64 shownFor() const { return shownSince_.elapsed(); }
    void flash() { flash_.flash(); }
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
    WindowFlash flash_{*this};
    bool placing_ = false;
    QElapsedTimer shownSince_;
};

}  // namespace display::qt
