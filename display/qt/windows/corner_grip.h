// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

namespace display::qt {

/// The corner by which a window without a frame is made larger and smaller.
class CornerGrip final : public QWidget {
 public:
    /// `begin` and `drag` are told where the pointer is on the screen, `end` that it was released.
    CornerGrip(QWidget* parent, std::function<void(QPoint)> begin, std::function<void(QPoint)> drag,
               std::function<void()> end);

    /// Puts it into the lower right corner of its parent.
    void settle(int size);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    std::function<void(QPoint)> begin_, drag_;
    std::function<void()> end_;
    bool held_ = false;
};

}  // namespace display::qt
