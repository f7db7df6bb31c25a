// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QImage>
#include <QPoint>
#include <map>
#include <string>
#include <tuple>

#include "display/qt/dot_rows.h"

namespace display::qt {

/// A text as dots: how much of each it covers.
class TextMask {
 public:
    TextMask() = default;
    /// `ascent` in logical pixels from the upper left corner down to the line it stands on.
    TextMask(const QString& text, const QFont& font, qreal ascent, qreal ratio);

    /// The dots that it may touch with its upper left corner there.
    DotBox reach(QPoint at) const;
    /// Draws what of it lies within that box, which lies within the rows. The colour is opaque.
    void lay(const DotRows& onto, QPoint at, const DotBox& within, QRgb colour) const;

 private:
    QPoint corner_;  ///< of the dots, from the text's own
    QImage shares_;
};

/// The texts of a drawing, set once: its labels come again with every redraw.
class TextMasks {
 public:
    /// At that scale from now on.
    void setScale(qreal pxPerTwip, qreal ratio);
    /// Forgets the texts when they have become many.
    void trim();
    /// Good until the scale changes or trim() is called.
    const TextMask& of(const std::string& text, float points, bool bold);

 private:
    struct Face {
        QFont font;
        qreal ascent = 0;
    };

    const Face& face(float points, bool bold);

    qreal pxPerTwip_ = 0, ratio_ = 0;
    std::map<std::pair<float, bool>, Face> faces_;
    std::map<std::tuple<float, bool, std::string>, TextMask> masks_;
};

}  // namespace display::qt
