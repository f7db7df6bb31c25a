// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>
#include <string_view>
#include <vector>

namespace display::qt {

struct PictureLook {
    QString caption;     ///< words on a key instead of the drawing's own
    qreal unit = 1;      ///< one natural pixel on this canvas
    bool usable = true;  ///< a key that nothing comes of is dim
};

using PicturePainter = void (*)(QPainter&, const QRectF&, const PictureLook&);

/// Paints one of the program's own drawings by its name. False, and nothing painted, when no
/// drawing has that name.
bool paintPicture(QPainter& painter, std::string_view name, const QRectF& box,
                  const PictureLook& look);

/// All names that paintPicture() knows.
std::vector<std::string_view> pictureNames();

/// One name and how it is drawn.
struct NamedPicture {
    std::string_view name;
    PicturePainter paint;
};

}  // namespace display::qt
