// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <map>
#include <utility>
#include <vector>

#include "display/drawing.h"
#include "display/qt/scale.h"

namespace display::qt {

/// The marks of a drawing as a picture, kept from frame to frame: a graph grows mark by mark, and
/// only what is new is painted. The cells of a map are painted as one picture.
class DrawingImage {
 public:
    /// Empty, of that size in device pixels, one drawing unit being `unit` twips.
    void begin(QSize dots, const Scale& scale, float unit);
    /// Draws the marks from `first` on, in order.
    void add(const std::vector<Mark>& marks, std::size_t first);
    /// With its upper left corner there, in logical pixels.
    void paint(QPainter& painter, QPointF at) const;

 private:
    struct Face {
        QFont font;
        qreal ascent = 0;
    };

    /// Whole device pixels, in logical ones.
    qreal at(float units) const;
    QRectF box(const Mark& mark) const;
    void stroke(QPainter& painter, const Mark& mark) const;
    void print(QPainter& painter, const Mark& mark);
    void cells(QPainter& painter, const Mark& mark) const;
    const Face& face(const Mark& mark);

    QImage image_;
    qreal pxPerUnit_ = 0, pxPerWidth_ = 0, pxPerTwip_ = 0, ratio_ = 1;
    std::map<std::pair<float, bool>, Face> faces_;  ///< by size and boldness
};

}  // namespace display::qt
