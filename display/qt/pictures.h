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
/// The lamps, word marks and arrows.
const std::vector<NamedPicture>& markPictures();
/// The keys of the panels, released (N) and pressed or lit (A).
const std::vector<NamedPicture>& keyPictures();

/// A key cap; a lit one is light and carries an amber mark.
enum class Cap { Dark, Lit };
void paintCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap);
/// The same, half faded into what lies behind: a key that nothing comes of now.
void paintDimCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap);
/// How high the words on a cap are set: words that are too wide for it get smaller, never cut.
qreal capTextHeight(QSizeF box, qreal unit, const QString& text);
/// The words on a cap, set smaller where they would not fit.
void paintCapText(QPainter& painter, const QRectF& box, qreal unit, QColor colour,
                  const QString& text);

}  // namespace display::qt
