// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace display::qt {

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
