// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/window_flash.h"

#include <QPainter>

#include "display/qt/painting/palette.h"

namespace display::qt {

namespace {

/// Long enough to be noticed, short enough not to be in the way.
constexpr int kFlashMs = 350;
/// Long enough to be found without the flash.
constexpr int kStandsMs = 2000;
constexpr int kFrameWidth = 4;

}  // namespace

WindowFlash::WindowFlash(QWidget& window) : QWidget(&window) {
    setObjectName("Flash");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    over_.setSingleShot(true);
    connect(&over_, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void WindowFlash::flash(Motion motion) {
    setGeometry(parentWidget()->rect());
    show();
    raise();
    over_.start(motion == Motion::Less ? kStandsMs : kFlashMs);
}

void WindowFlash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QPen frame{QColor(kAmber)};
    frame.setWidth(kFrameWidth);
    frame.setJoinStyle(Qt::MiterJoin);
    painter.setPen(frame);
    constexpr int kInside = kFrameWidth / 2;
    painter.drawRect(rect().adjusted(kInside, kInside, -kInside, -kInside));
}

}  // namespace display::qt
