// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/page_painter.h"

#include <QFontMetricsF>
#include <QPolygonF>

#include "display/qt/control_widget.h"
#include "display/qt/faces.h"
#include "display/qt/palette.h"
#include "display/qt/pictures.h"

namespace display::qt {

namespace {

/// Scales on pages are single texts of numbers and blanks, laid out for a face whose digits are
/// this wide, in sizes of the face.
constexpr qreal kDigitWidth = 0.546;
/// A natural pixel of the program's drawings.
constexpr qreal kPictureUnit = 10;

QPen qPen(const PagePen& pen) {
    QPen made(qColour(pen.colour), pen.width,
              pen.style == PenStyle::Dotted ? Qt::DotLine : Qt::SolidLine, Qt::FlatCap,
              Qt::RoundJoin);
    return made;
}

/// The face in page units, and what its letters' widths are taken times.
struct PageFace {
    QFont font;
    qreal across = 1;
    qreal ascent = 0;
};

PageFace faceOf(const PageFont& wanted) {
    const Faces& faces = Faces::get();
    const bool fixed = wanted.pitch == Pitch::Fixed;
    const qreal size = wanted.points * kPageUnitsPerPoint;
    PageFace face{fixed ? faces.fixedFont(1) : faces.font(1, wanted.weight), 1, 0};
    // Pixels of a device that has one for each page unit, whatever the screen is.
    face.font.setPixelSize(qRound(size));
    face.font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(face.font);
    const qreal digit = metrics.horizontalAdvance(QLatin1Char('0'));
    if (digit > 0)
        face.across = (fixed ? qreal(fixedAdvance(wanted.points)) : kDigitWidth * size) / digit;
    face.ascent = metrics.ascent();
    return face;
}

void paintText(QPainter& painter, const PageMark& mark) {
    const PageFace face = faceOf(mark.font);
    painter.save();
    painter.translate(mark.from.x, mark.from.y);
    painter.rotate(-mark.turn / 10.0);
    painter.scale(face.across, 1);
    painter.setFont(face.font);
    painter.setPen(qColour(mark.font.colour));
    painter.drawText(QPointF(0, face.ascent), qText(mark.text));
    painter.restore();
}

void paintPolyline(QPainter& painter, const PageMark& mark) {
    QPolygonF line;
    for (const PagePoint& point : pagePoints(mark.text)) line << QPointF(point.x, point.y);
    painter.setPen(qPen(mark.pen));
    painter.drawPolyline(line);
}

void paintMark(QPainter& painter, const PageMark& mark) {
    const QPointF from(mark.from.x, mark.from.y);
    const QPointF to(mark.to.x, mark.to.y);
    painter.setBrush(Qt::NoBrush);
    switch (mark.kind) {
        case PageMark::Kind::Picture:
            painter.save();
            paintPicture(painter, mark.text, QRectF(from, to), {QString(), kPictureUnit});
            painter.restore();
            break;
        case PageMark::Kind::Writing:
            paintText(painter, mark);
            break;
        case PageMark::Kind::Line:
            painter.setPen(qPen(mark.pen));
            painter.drawLine(from, to);
            break;
        case PageMark::Kind::Rectangle:
            painter.setPen(qPen(mark.pen));
            painter.drawRect(QRectF(from, to));
            break;
        case PageMark::Kind::Polyline:
            paintPolyline(painter, mark);
            break;
    }
}

}  // namespace

void paintPage(QPainter& painter, const Page& page) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.translate(page.margins.left, page.margins.top);
    for (const PageMark& mark : page.marks) paintMark(painter, mark);
    painter.restore();
}

}  // namespace display::qt
