// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QString>

#include "display/qt/widgets/control_widget.h"

namespace display::qt {

/// Stands in for a minimised rack where there is no window manager and no task bar to bring it
/// back: a small bar with the rack's name. A click, Enter or Space on it restores the rack.
class FoldBar final : public QAbstractButton {
 public:
    /// unit: one pixel at the natural size, on this screen.
    FoldBar(const QString& title, bool spanish, qreal unit);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    qreal unit_;
};

}  // namespace display::qt
