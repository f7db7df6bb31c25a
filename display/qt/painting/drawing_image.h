// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <vector>

#include "display/qt/painting/mark_painter.h"

namespace display::qt {

/// Keeps the marks of a drawing as an image from frame to frame, so that only new marks have to be
/// painted. The cells of a map are painted as one image.
class DrawingImage {
 public:
    /// Starts an empty image of that size in device pixels; one drawing unit is `unit` twips.
    void begin(QSize pixels, const Scale& scale, float unit);
    /// Draws the marks from `first` on, in order.
    void add(const std::vector<Mark>& marks, std::size_t first);
    /// Paints the image with its upper left corner at that point, in logical pixels.
    void paint(QPainter& painter, QPointF at) const;

 private:
    QImage image_;
    MarkPainter marks_;
};

}  // namespace display::qt
