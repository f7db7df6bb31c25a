// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "display/controls/pictures.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/widgets/reading_layer.h"

namespace display::qt {

/// The input of a picture box, which the form's surface paints: a double click or Enter where the
/// form has bound it, else a reader's marks over a drawing that has numbers.
class PictureBoxWidget final : public QWidget, public ControlWidget {
 public:
    PictureBoxWidget(QtDesktop& desktop, PictureBox& box, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    /// A box that is a button shows its drawing too small to be read.
    bool isRead() const { return box_.numbers && !box_.interactive(); }

    QtDesktop& desktop_;
    PictureBox& box_;
    ReadingLayer* marks_;
};

}  // namespace display::qt
