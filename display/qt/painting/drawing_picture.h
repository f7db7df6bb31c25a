// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QSizeF>

#include "display/control.h"

namespace display {
class Chart;
}

namespace display::qt {

/// The picture of a drawing as it is copied and saved: the drawing whole, also where a window shows
/// a part of it, with the words and lines that stand around it in the place that it names. Painted
/// from the model: no window has to be on the screen. Nothing of it needs a clip, which a picture
/// of lines does not have.
class DrawingPicture {
 public:
    DrawingPicture(Control& drawing, qreal pixelsPerTwip);

    /// As large as it stands on the screen, in logical pixels.
    QSizeF size() const;
    /// From the painter's origin on, on a device with that many pixels for each logical pixel, in
    /// each direction.
    void paint(QPainter& painter, qreal devicePixelRatio) const;

 private:
    void measureChart(const Chart& chart);
    void paintOne(QPainter& painter, Control& control, qreal devicePixelsPerTwip) const;
    bool belongs(const Control& control) const;
    bool scrollsWithIt(const Control& control) const;

    Control& drawing_;
    qreal pixelsPerTwip_;
    bool named_ = false;  ///< it names a place
    Box place_;           ///< on its form
    float wider_ = 0;     ///< what the whole drawing takes more than what is seen of it
    float shift_ = 0;     ///< from where the drawing is scrolled to, to where it is whole
};

}  // namespace display::qt
