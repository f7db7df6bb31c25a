// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/page_painter.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <QString>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/pictures.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

namespace {

/// The width of a digit, in font sizes, for which the scales on pages are laid out: each is one
/// text of numbers and blanks.
constexpr qreal kDigitWidth = 0.546;
/// A pixel of the program's drawings at their natural size.
constexpr qreal kPictureUnit = 10;

QPen qPen(const PagePen& pen) {
    QPen made(qColour(pen.colour), pen.width,
              pen.style == PenStyle::Dotted ? Qt::DotLine : Qt::SolidLine, Qt::FlatCap,
              Qt::RoundJoin);
    return made;
}

/// A font in page units, and the factor by which its letters are stretched.
struct SizedFont {
    QFont font;
    qreal across = 1;
    qreal ascent = 0;
};

SizedFont sizedFont(const PageFont& wanted) {
    const Fonts& fonts = Fonts::get();
    const bool fixed = wanted.pitch == Pitch::Fixed;
    const qreal size = wanted.points * kPageUnitsPerPoint;
    SizedFont sized{fixed ? fonts.fixedFont(1) : fonts.font(1, wanted.weight), 1, 0};
    // The painter has one pixel for each page unit, whatever the resolution of the screen.
    sized.font.setPixelSize(qRound(size));
    sized.font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(sized.font);
    const qreal digit = metrics.horizontalAdvance(QLatin1Char('0'));
    if (digit > 0)
        sized.across = (fixed ? qreal(fixedAdvance(wanted.points)) : kDigitWidth * size) / digit;
    sized.ascent = metrics.ascent();
    return sized;
}

void paintText(QPainter& painter, const PageMark& mark) {
    const SizedFont sized = sizedFont(mark.font);
    painter.save();
    painter.translate(mark.from.x, mark.from.y);
    painter.rotate(-mark.turn / 10.0);
    painter.scale(sized.across, 1);
    painter.setFont(sized.font);
    painter.setPen(qColour(mark.font.colour));
    painter.drawText(QPointF(0, sized.ascent), qText(mark.text));
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
