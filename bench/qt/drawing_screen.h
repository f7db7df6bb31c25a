// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <memory>

#include "display/qt/painting/painted.h"

namespace hmonitor::test {

/// The drawing of a picture box on an image of its own, at ten twips a pixel.
class DrawingScreen {
 public:
    /// Gives the box the size of the image, in pixels.
    DrawingScreen(display::PictureBox& box, int width, int height) : DrawingScreen(box) {
        box.left = 0.f;
        box.top = 0.f;
        box.width = static_cast<float>(10 * width);
        box.height = static_cast<float>(10 * height);
        image_ = QImage(width, height, QImage::Format_RGB32);
    }
    /// Keeps the box as it is.
    explicit DrawingScreen(display::PictureBox& box)
        : painted_(display::qt::paintedDrawing(box)), image_(1200, 800, QImage::Format_RGB32) {}

    /// Paints what is new in the drawing.
    void frame() {
        painted_->prepare(display::qt::Scale(0.1, 1));
        QPainter painter(&image_);
        painted_->paint(painter);
    }

 private:
    std::unique_ptr<display::qt::Painted> painted_;
    QImage image_;
};

}  // namespace hmonitor::test
