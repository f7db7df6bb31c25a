// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QSizeF>

#include "display/control.h"

namespace display {
class Chart;
}

namespace display::qt {

/// The picture of a drawing that is copied or saved: the whole drawing, also where a window shows
/// only a part of it, with the labels and lines inside its picture box. It is painted from the
/// model, so no window has to be on the screen, and without clipping, which vector files lack.
class DrawingPicture {
 public:
    DrawingPicture(Control& drawing, qreal pixelsPerTwip);

    /// Its size on the screen, in logical pixels.
    QSizeF size() const;
    /// Paints it at the painter's origin, on a device with that many pixels for each logical pixel.
    void paint(QPainter& painter, qreal devicePixelRatio) const;

 private:
    void measureChart(const Chart& chart);
    void paintOne(QPainter& painter, Control& control, qreal devicePixelsPerTwip) const;
    bool belongs(const Control& control) const;
    bool scrollsWithIt(const Control& control) const;

    Control& drawing_;
    qreal pixelsPerTwip_;
    bool named_ = false;  ///< the drawing has a picture box
    Box place_;           ///< that box, on the form
    float wider_ = 0;     ///< by how much the whole drawing is wider than its visible part
    float shift_ = 0;     ///< from the scrolled position to the unscrolled one
};

}  // namespace display::qt
