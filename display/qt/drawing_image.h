// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <map>
#include <optional>

#include "display/drawing.h"
#include "display/qt/scale.h"

namespace display::qt {

/// The marks of a drawing as dots, kept from frame to frame. Boxes and level and upright lines,
/// which are nearly all marks, are written straight into the dots; a painter comes for texts and
/// slanting lines alone. What boxes have filled is known to hide what lies behind, so that it is
/// laid on the screen without blending.
class DrawingImage {
 public:
    /// Empty, of that size in device pixels, one drawing unit being `unit` twips.
    void begin(QSize dots, const Scale& scale, float unit);
    /// Draws the marks from `first` on, in order. Marks of a drawing that was begun anew are all
    /// drawn, first to last.
    void add(const std::vector<Mark>& marks, std::size_t first);
    /// With its upper left corner there, in logical pixels.
    void paint(QPainter& painter, QPointF at) const;

 private:
    struct Face {
        QFont font;
        qreal ascent = 0;
    };

    int dot(float units) const;
    void clearAround(const QRect& filled);
    QRect dotsOf(const Mark& box) const;
    void fill(const QRect& dots, const Colour& colour);
    void fillBox(const Mark& mark);
    void drawStroke(const Mark& mark);
    void print(const Mark& mark);
    const Face& face(const Mark& mark);
    QPainter& painter();
    void paintPart(QPainter& painter, QPointF at, const QRect& part, QImage::Format as) const;

    QImage image_;
    std::optional<QPainter> painter_;  ///< while marks are added, once one needs it
    QRect filled_;                     ///< the largest place where nothing shines through
    std::map<std::pair<float, bool>, Face> faces_;
    bool begun_ = false;  ///< what the dots hold is old
    qreal dotsPerUnit_ = 0, pxPerTwip_ = 0, ratio_ = 0;
};

}  // namespace display::qt
