// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>

#include "display/qt/dot_rows.h"

namespace display::qt {

/// A straight stroke with square ends and smooth edges, as dots: each dot that it covers in part
/// takes that part of its colour. Curves are hundreds of short strokes, for which a painter spends
/// most of its time getting ready.
class SlantingStroke {
 public:
    /// Between two corners of dots, `width` dots thick. The two differ.
    SlantingStroke(QPoint from, QPoint to, int width);

    /// The dots that it may touch.
    const DotBox& reach() const { return reach_; }
    /// Draws what of it lies within that box, which lies within the rows. The colour is opaque.
    void lay(const DotRows& onto, const DotBox& within, QRgb colour) const;

 private:
    /// Distances along the stroke and across it, from its middle.
    struct Place {
        float along = 0, across = 0;
    };
    Place placeOf(int x, int y) const;
    DotBox rowWithin(int y, const DotBox& within) const;

    float midX_ = 0, midY_ = 0;  ///< in dots
    DotBox reach_;
    // Along and across, one unit is how far a dot reaches there.
    float stepX_ = 0, stepY_ = 0;  ///< how far the next column and row lie along the stroke
    float halfLength_ = 0, halfWidth_ = 0;
};

}  // namespace display::qt
