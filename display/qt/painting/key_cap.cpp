// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/key_cap.h"

#include <QLinearGradient>
#include <QPolygonF>
#include <algorithm>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

void paintCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap) {
    const bool lit = cap == Cap::Lit;
    const qreal radius = 4 * unit;
    painter.setRenderHint(QPainter::Antialiasing, true);
    // The dark rim around the key.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kKeyEdge));
    painter.drawRoundedRect(box, radius + unit, radius + unit);
    const QRectF face = box.adjusted(1.5 * unit, 1.5 * unit, -1.5 * unit, -1.5 * unit);
    QLinearGradient metal(face.topLeft(), face.bottomLeft());
    metal.setColorAt(0, QColor(lit ? kLitTop : kKeyTop));
    metal.setColorAt(1, QColor(lit ? kLitBottom : kKeyBottom));
    painter.setBrush(metal);
    painter.drawRoundedRect(face, radius, radius);
    painter.setPen(QPen(QColor(lit ? 0xffffffff : kKeyGlint), unit * 0.8));
    painter.drawLine(face.topLeft() + QPointF(radius, unit * 0.4),
                     face.topRight() + QPointF(-radius, unit * 0.4));
    if (!lit) return;
    const qreal width = std::min(18 * unit, face.width() * 0.4);
    // On a low key the mark stays clear of the words.
    const qreal down = std::min(3 * unit, face.height() * 0.07);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kAmber));
    painter.drawRoundedRect(
        QRectF(face.center().x() - width / 2, face.top() + down, width, 2.6 * unit), unit, unit);
}

void paintDimCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap) {
    constexpr qreal kDim = 0.45;
    const qreal before = painter.opacity();
    painter.setOpacity(before * kDim);
    paintCap(painter, box, unit, cap);
    painter.setOpacity(before);
}

namespace {

/// Arrows are drawn as polygons: fonts have them in different sizes, or not at all.
bool paintArrow(QPainter& painter, const QRectF& box, qreal unit, QColor colour,
                const QString& text) {
    static const QString arrows = QString::fromUtf8("\u25b6\u25bc\u25c0\u25b2");
    const qsizetype which = text.size() == 1 ? arrows.indexOf(text[0]) : -1;
    if (which < 0) return false;
    const qreal size = std::min({5.5 * unit, box.height() * 0.28, box.width() * 0.28});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.translate(box.center());
    painter.rotate(90.0 * static_cast<double>(which));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(
        QPolygonF(QList<QPointF>{{-size * 0.8, -size}, {size, 0}, {-size * 0.8, size}}));
    painter.restore();
    return true;
}

}  // namespace

qreal capTextHeight(QSizeF box, qreal unit, const QString& text) {
    const qreal height = std::min(12 * unit, box.height() * 0.55);
    const qreal room = box.width() - 8 * unit;
    const qreal width =
        QFontMetricsF(Fonts::get().font(height, Weight::Bold)).horizontalAdvance(text);
    return width > room && width > 0 ? height * room / width : height;
}

void paintCapText(QPainter& painter, const QRectF& box, qreal unit, QColor colour,
                  const QString& text) {
    if (text.isEmpty() || paintArrow(painter, box, unit, colour, text)) return;
    painter.setFont(Fonts::get().font(capTextHeight(box.size(), unit, text), Weight::Bold));
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip | Qt::TextShowMnemonic, text);
}

}  // namespace display::qt
