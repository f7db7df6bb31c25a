// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

namespace display::qt {

/// Flashes an amber frame inside the edge of a window, to point the user to the one that waits for
/// an answer.
class WindowFlash final : public QWidget {
 public:
    explicit WindowFlash(QWidget& window);
    void flash();

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QTimer over_;
};

}  // namespace display::qt
