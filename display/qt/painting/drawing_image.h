// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <vector>

#include "display/qt/painting/mark_painter.h"

namespace display::qt {

/// The marks of a drawing as a picture, kept from frame to frame: a graph grows mark by mark, and
/// only what is new is painted. The cells of a map are painted as one picture.
class DrawingImage {
 public:
    /// Empty, of that size in device pixels, one drawing unit being `unit` twips.
    void begin(QSize pixels, const Scale& scale, float unit);
    /// Draws the marks from `first` on, in order.
    void add(const std::vector<Mark>& marks, std::size_t first);
    /// With its upper left corner there, in logical pixels.
    void paint(QPainter& painter, QPointF at) const;

 private:
    QImage image_;
    MarkPainter marks_;
};

}  // namespace display::qt
