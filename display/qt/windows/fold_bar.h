// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

#include "display/qt/widgets/control_widget.h"

namespace display::qt {

/// What a folded rack leaves on a screen on which nothing folds windows and no task bar brings them
/// back: a small bar with the rack's name. A click, Enter or Space on it unfolds the rack.
class FoldBar final : public QAbstractButton {
 public:
    /// unit: a natural pixel on this screen.
    FoldBar(const QString& title, bool spanish, qreal unit);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    qreal unit_;
};

}  // namespace display::qt
