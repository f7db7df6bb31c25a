// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>
#include <string_view>
#include <vector>

namespace display::qt {

struct PictureLook {
    QString caption;     ///< text on a key in place of the drawing's own
    qreal unit = 1;      ///< one pixel at the natural size, in the painter's units
    bool usable = true;  ///< a key that does nothing is dim
};

using PicturePainter = void (*)(QPainter&, const QRectF&, const PictureLook&);

/// Paints one of the program's own drawings by its name. Returns false and paints nothing when
/// there is none of that name.
bool paintPicture(QPainter& painter, std::string_view name, const QRectF& box,
                  const PictureLook& look);

/// All names that paintPicture() knows.
std::vector<std::string_view> pictureNames();

/// A name and the function that paints it.
struct NamedPicture {
    std::string_view name;
    PicturePainter paint;
};

}  // namespace display::qt
