// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <algorithm>
#include <cstdlib>

namespace display::qt {

/// The largest difference of any colour channel; 255 for pictures of different sizes.
inline int largestDifference(const QImage& a, const QImage& b) {
    int largest = a.size() == b.size() ? 0 : 255;
    for (int y = 0; y < a.height() && largest < 255; ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)),
                                std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

}  // namespace display::qt
