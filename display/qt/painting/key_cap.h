// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace display::qt {

/// The top of a key; a lit one is light and has an amber mark.
enum class Cap { Dark, Lit };
void paintCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap);
/// The same, half transparent: a key that does nothing now.
void paintDimCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap);
/// The text height on a key cap: smaller than usual for words that are too wide, which are never
/// cut.
qreal capTextHeight(QSizeF box, qreal unit, const QString& text);
/// Paints the words on a key cap, at that height.
void paintCapText(QPainter& painter, const QRectF& box, qreal unit, QColor colour,
                  const QString& text);

}  // namespace display::qt
