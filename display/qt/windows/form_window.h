// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include "display/qt/windows/form_view.h"
#include "display/qt/windows/window_flash.h"

namespace display::qt {

/// The window of a form, with the window manager's frame; without a frame if the form has no
/// caption, as a splash screen. Its position and the form's left and top follow each other.
class FormWindow final : public QWidget {
 public:
    FormWindow(QtDesktop& desktop, Form& form);

    FormView& view() { return view_; }
    /// Shows it at the position in the model; where the model has none, over `opener` or in the
    /// middle of the screen. It stays above `above`.
    void appear(const QWidget* over, const QWidget* above);
    /// Milliseconds since it was last shown.
    qint64 shownFor() const { return shownSince_.elapsed(); }
    void flash(Motion motion) { flash_.flash(motion); }
    /// All windows have another scale: where it stands is another place in the model.
    void rescaled();
    /// Reads caption, position and frame from the form after a change.
    void sync();

 protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    void placeFirst(const QWidget* over);
    QSize wantedSize() const;
    void sizeFor(const QSize& wanted);
    Qt::WindowFlags wantedFlags() const;

    QtDesktop& desktop_;
    Form& form_;
    FormView view_;
    WindowFlash flash_{*this};
    bool placing_ = false;
    bool resizable_ = false;  ///< it shows charts or graphs
    QSize sized_;             ///< the size that the form asked for last
    QSize answered_;          ///< the size of before, when the form took its shape back
    QTimer settled_;          ///< the user has let go of its edge
    QElapsedTimer shownSince_;
};

}  // namespace display::qt
