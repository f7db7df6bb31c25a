// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/mark_pictures.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>
#include <QScreen>
#include <QString>
#include <algorithm>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

namespace {

void paintLamp(QPainter& painter, const QRectF& box, qreal unit, QColor top, QColor bottom) {
    QLinearGradient glow(box.topLeft(), box.bottomLeft());
    glow.setColorAt(0, top);
    glow.setColorAt(1, bottom);
    painter.setPen(QPen(QColor(0x0a, 0x12, 0x0b), unit * 0.8));
    painter.setBrush(glow);
    const qreal half = unit * 0.4;
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), 3 * unit, 3 * unit);
}

void lampOn(QPainter& painter, const QRectF& box, const PictureLook& look) {
    paintLamp(painter, box, look.unit, QColor(0x4d, 0xff, 0x5e), QColor(0x22, 0xe8, 0x38));
}

void lampOff(QPainter& painter, const QRectF& box, const PictureLook& look) {
    paintLamp(painter, box, look.unit, QColor(0x2a, 0x54, 0x2f), QColor(0x20, 0x42, 0x25));
}

/// The font of a logo, of that height in the painter's units.
QFont wordMarkFont(const QPainter& painter, qreal height) {
    QFont font = Fonts::get().font(height, Weight::Bold);
    const QScreen* screen = QGuiApplication::primaryScreen();
    // On other devices than the screen a point has another number of pixels.
    if (!screen || painter.device()->logicalDpiY() != qRound(screen->logicalDotsPerInchY()))
        font.setPixelSize(std::max(qRound(height), 1));
    font.setLetterSpacing(QFont::PercentageSpacing, 112);
    return font;
}

void paintWordMark(QPainter& painter, const QRectF& box, const QString& word, QColor colour) {
    const qreal height = box.height() * 0.8;
    QFont font = wordMarkFont(painter, height);
    const qreal width = QFontMetricsF(font).horizontalAdvance(word);
    if (width > box.width()) font = wordMarkFont(painter, height * box.width() / width);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, word);
}

/// The logos of the two brands.
void teskel(QPainter& painter, const QRectF& box, const PictureLook&) {
    paintWordMark(painter, box, QStringLiteral("TESKEL"), QColor(0x9f, 0xc4, 0xff));
}

void marvenia(QPainter& painter, const QRectF& box, const PictureLook&) {
    paintWordMark(painter, box, QStringLiteral("MARVENIA"), QColor(0xdd, 0xe2, 0xe9));
}

/// The same in the colours for paper.
void teskelInk(QPainter& painter, const QRectF& box, const PictureLook&) {
    paintWordMark(painter, box, QStringLiteral("TESKEL"), QColor(0x1d, 0x4f, 0x91));
}

void marveniaInk(QPainter& painter, const QRectF& box, const PictureLook&) {
    paintWordMark(painter, box, QStringLiteral("MARVENIA"), QColor(0x26, 0x2c, 0x34));
}

/// Graph paper: a grid of faint lines on a dark background.
void graphPaper(QPainter& painter, const QRectF& box, const PictureLook& look) {
    const qreal step = 12 * look.unit;
    painter.setPen(QPen(QColor(0x1b, 0x22, 0x2a), look.unit));
    for (qreal x = box.left() + step / 2; x < box.right(); x += step)
        painter.drawLine(QPointF(x, box.top()), QPointF(x, box.bottom()));
    for (qreal y = box.top() + step / 2; y < box.bottom(); y += step)
        painter.drawLine(QPointF(box.left(), y), QPointF(box.right(), y));
}

/// The arrow heads of the bar's marker, above and below the scale.
void markTop(QPainter& painter, const QRectF& box, const PictureLook&) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(
        QPolygonF({box.topLeft(), box.topRight(), QPointF(box.center().x(), box.bottom())}));
}

void markBottom(QPainter& painter, const QRectF& box, const PictureLook&) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(
        QPolygonF({box.bottomLeft(), box.bottomRight(), QPointF(box.center().x(), box.top())}));
}

/// A ring around what the user should look at again.
void amberRing(QPainter& painter, const QRectF& box, const PictureLook& look) {
    const qreal width = 2.5 * look.unit;
    const qreal half = width / 2;
    painter.setPen(QPen(QColor(kAmber), width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), 5 * look.unit, 5 * look.unit);
}

/// The frame around a figure beyond its limit. A black line inside keeps it apart from figures of
/// its own colour.
void limitFrame(QPainter& painter, const QRectF& box, qreal unit, QRgb colour) {
    const qreal width = 2 * unit;
    const auto ring = [&](qreal in, QRgb its) {
        painter.setPen(QPen(QColor(its), width));
        painter.drawRoundedRect(box.adjusted(in, in, -in, -in), 4 * unit, 4 * unit);
    };
    painter.setBrush(Qt::NoBrush);
    ring(width * 1.2, kWellBottom);
    ring(width / 2, colour);
}
void limitWarning(QPainter& painter, const QRectF& box, const PictureLook& look) {
    limitFrame(painter, box, look.unit, kAmber);
}
void limitAlarm(QPainter& painter, const QRectF& box, const PictureLook& look) {
    limitFrame(painter, box, look.unit, kAlarm);
}

/// Its word, on a ground of the frame's colour that is as wide as the word needs.
void limitWord(QPainter& painter, const QRectF& box, const PictureLook& look, QRgb ground) {
    const QFont font = Fonts::get().font(box.height() * 0.78, Weight::Bold);
    const qreal wide =
        std::min(box.width(), QFontMetricsF(font).horizontalAdvance(look.caption) + 8 * look.unit);
    const QRectF plate(box.left(), box.top(), wide, box.height());
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(ground));
    painter.drawRoundedRect(plate, 2 * look.unit, 2 * look.unit);
    painter.setFont(font);
    painter.setPen(QColor(kLitText));
    painter.drawText(plate, Qt::AlignCenter | Qt::TextDontClip, look.caption);
}
void limitWarningWord(QPainter& painter, const QRectF& box, const PictureLook& look) {
    limitWord(painter, box, look, kAmber);
}
void limitAlarmWord(QPainter& painter, const QRectF& box, const PictureLook& look) {
    limitWord(painter, box, look, kAlarm);
}

/// A warning in the head of a panel.
void sign(QPainter& painter, const QRectF& box, const PictureLook& look) {
    painter.setFont(Fonts::get().font(box.height() * 0.78, Weight::Bold));
    painter.setPen(QColor(kAmber));
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, look.caption);
}

}  // namespace

const std::vector<NamedPicture>& markPictures() {
    static const std::vector<NamedPicture> pictures = {
        {"multyon", lampOn},
        {"multyoff", lampOff},
        {"Logo1", teskel},
        {"Logo2", marvenia},
        {"LogoTeskel", teskel},
        {"LogoMarvenia", marvenia},
        {"InkTeskel", teskelInk},
        {"InkMarvenia", marveniaInk},
        {"GraphPaper", graphPaper},
        {"MarkTop", markTop},
        {"MarkBottom", markBottom},
        {"AmberRing", amberRing},
        {"Sign", sign},
        {"LimitWarning", limitWarning},
        {"LimitWarningWord", limitWarningWord},
        {"LimitAlarm", limitAlarm},
        {"LimitAlarmWord", limitAlarmWord},
    };
    return pictures;
}

}  // namespace display::qt
