// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRect>

namespace display::qt {

/// Whole dots, from the first column and row to the ones behind the last.
struct DotBox {
    int left = 0, top = 0, right = 0, bottom = 0;

    bool empty() const { return left >= right || top >= bottom; }
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    DotBox operator&(const DotBox& other) const {
        return {left > other.left ? left : other.left, top > other.top ? top : other.top,
                right < other.right ? right : other.right,
                bottom < other.bottom ? bottom : other.bottom};
    }
    QRect rect() const { return {left, top, width(), height()}; }
    static DotBox of(const QRect& rect) {
        return {rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1};
    }
};

/// The dots of a picture of 32 bits each, written without a painter. The picture has to stand
/// still, and no copy of it may be made, as long as this is used.
class DotRows {
 public:
    explicit DotRows(QImage& image)
        : first_(reinterpret_cast<QRgb*>(image.bits())),
          stride_(image.bytesPerLine() / qsizetype{sizeof(QRgb)}),
          all_{0, 0, image.width(), image.height()} {}

    const DotBox& all() const { return all_; }
    QRgb* row(int y) const { return first_ + y * stride_; }
    /// The box has to lie within all().
    void fill(const DotBox& box, QRgb value) const;

 private:
    QRgb* first_;
    qsizetype stride_;
    DotBox all_;
};

/// Every channel of both, weighted by share and 255 - share.
inline QRgb mixed(QRgb colour, QRgb below, unsigned share) {
    constexpr unsigned kPair = 0xff00ff, kHalf = 0x800080;
    const unsigned rest = 255 - share;
    unsigned even = (colour & kPair) * share + (below & kPair) * rest;
    even = (even + (even >> 8 & kPair) + kHalf) >> 8 & kPair;
    unsigned odd = (colour >> 8 & kPair) * share + (below >> 8 & kPair) * rest;
    odd = (odd + (odd >> 8 & kPair) + kHalf) & ~kPair;
    return even | odd;
}

}  // namespace display::qt
