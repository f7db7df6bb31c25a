// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <vector>

#include "display/drawing.h"
#include "display/qt/dot_rows.h"
#include "display/qt/scale.h"
#include "display/qt/slanting_stroke.h"
#include "display/qt/text_masks.h"

namespace display::qt {

/// The marks of a drawing as dots, kept from frame to frame. Boxes and lines, which are nearly all
/// marks, are written straight into the dots; a painter comes for texts alone. What boxes have
/// filled is known to hide what lies behind, so that it is laid on the screen without blending.
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
    /// A mark in dots. A level or upright line is a filled one.
    struct Piece {
        Mark::Kind kind = Mark::Kind::Filled;
        QRgb colour = 0;
        std::size_t index = 0;  ///< of its stroke or text
        DotBox reach;
    };
    struct Print {
        const TextMask* text = nullptr;
        QPoint at;
    };

    int dot(float units) const;
    DotBox dotsOf(const Mark& box) const;
    void addPiece(const Mark& mark);
    void takeStroke(const Mark& mark, Piece& piece);
    void layBands(const DotBox& touched);
    void layBand(const DotRows& rows, const DotBox& band) const;
    void clearAround(const DotRows& rows, const DotBox& band) const;
    void paintPart(QPainter& painter, QPointF at, const QRect& part, QImage::Format as) const;

    QImage image_;
    DotBox filled_;  ///< the largest place where nothing shines through
    TextMasks texts_;
    bool begun_ = false;  ///< what the dots hold is old
    qreal dotsPerUnit_ = 0, dotsPerWidth_ = 0, ratio_ = 0;
    // What is being added.
    std::vector<Piece> pieces_;
    std::vector<SlantingStroke> strokes_;
    std::vector<Print> prints_;
};

}  // namespace display::qt
