// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

#include "display/qt/windows/desktop_motion.h"

namespace display::qt {

/// Flashes an amber frame inside the edge of a window, to point the user to the one that waits for
/// an answer. Where less motion is wanted the frame stands still for a while instead.
class WindowFlash final : public QWidget {
 public:
    explicit WindowFlash(QWidget& window);
    void flash(Motion motion);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QTimer over_;
};

}  // namespace display::qt
