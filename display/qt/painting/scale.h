// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QRectF>
#include <QSizeF>

#include "display/control.h"

namespace display::qt {

/// Converts twips to logical pixels, by one factor for every window. Edges are put on whole device
/// pixels, so that they are sharp at every device pixel ratio.
class Scale {
 public:
    Scale(qreal pixelsPerTwip, qreal deviceRatio);

    /// The factor at which a rack of `rackTwips` fits a screen of `available` logical pixels with a
    /// little room around it; at most 1.45 times the natural size, which is ten twips a pixel.
    static qreal fitting(QSizeF rackTwips, QSizeF available);

    /// The same on the whole of the screen, however large it is.
    static qreal filling(QSizeF rackTwips, QSizeF screen);
    /// The factor nearest to `wanted` at which the rack can be read and fits the screen.
    static qreal within(qreal wanted, QSizeF rackTwips, QSizeF screen);

    qreal px(qreal twips) const { return twips * pixelsPerTwip_; }
    qreal twips(qreal px) const { return px / pixelsPerTwip_; }

    /// To the nearest device pixel, in logical pixels.
    qreal snapped(qreal px) const;
    QRectF snapped(const Box& twips) const;

    /// Rounds to logical pixels that are also whole device pixels, where child widgets may be
    /// placed.
    int whole(qreal px) const;
    QRect whole(const Box& twips) const;
    /// The smallest such rectangle around one.
    QRect around(const QRectF& px) const;

    qreal deviceRatio() const { return deviceRatio_; }
    /// The step of whole(): 1 at ratios 1 and 2, 4 at 1.25, 2 at 1.5.
    int grid() const { return grid_; }

    bool operator==(const Scale&) const = default;

 private:
    qreal pixelsPerTwip_;
    qreal deviceRatio_;
    int grid_ = 1;
};

}  // namespace display::qt
