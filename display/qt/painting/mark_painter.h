// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <map>
#include <utility>

#include "display/drawing.h"
#include "display/qt/painting/scale.h"

namespace display::qt {

/// Paints the marks of a drawing, its upper left corner at the painter's origin, on an image or on
/// paper. Edges are put on whole device pixels.
class MarkPainter {
 public:
    /// One drawing unit is `unit` twips. No box is thinner than a device pixel, nor than `thinnest`
    /// twips, for devices with pixels too small to see.
    void scale(const Scale& scale, float unit, float thinnest = 0);
    /// Slanting lines and texts are antialiased; boxes, cells, horizontal and vertical lines are
    /// not.
    void paint(QPainter& painter, const Mark& mark);

 private:
    struct SizedFont {
        QFont font;
        qreal ascent = 0;
    };

    /// Rounds to whole device pixels; in logical pixels.
    qreal at(float units) const;
    QRectF box(const Mark& mark) const;
    void stroke(QPainter& painter, const Mark& mark) const;
    void print(QPainter& painter, const Mark& mark);
    void cells(QPainter& painter, const Mark& mark) const;
    const SizedFont& sizedFont(const Mark& mark);

    qreal pxPerUnit_ = 0, pxPerWidth_ = 0, pxPerTwip_ = 0, ratio_ = 1, thinnest_ = 0;
    std::map<std::pair<float, bool>, SizedFont> fonts_;  ///< by size and boldness
};

}  // namespace display::qt
