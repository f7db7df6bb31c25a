// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLinearGradient>
#include <QPolygonF>
#include <algorithm>

#include "display/controls.h"
#include "display/qt/faces.h"
#include "display/qt/palette.h"
#include "display/qt/pictures.h"

namespace display::qt {

void paintCap(QPainter& painter, const QRectF& box, qreal unit, Cap cap) {
    const bool lit = cap == Cap::Lit;
    const qreal radius = 4 * unit;
    painter.setRenderHint(QPainter::Antialiasing, true);
    // The seat that the key stands in.
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
    // A low cap keeps it clear of the words.
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

/// Arrows are drawn: type faces give those that they have in sizes of their own.
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
        QFontMetricsF(Faces::get().font(height, Weight::Bold)).horizontalAdvance(text);
    return width > room && width > 0 ? height * room / width : height;
}

void paintCapText(QPainter& painter, const QRectF& box, qreal unit, QColor colour,
                  const QString& text) {
    if (text.isEmpty() || paintArrow(painter, box, unit, colour, text)) return;
    painter.setFont(Faces::get().font(capTextHeight(box.size(), unit, text), Weight::Bold));
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip | Qt::TextShowMnemonic, text);
}

namespace {

void paintKey(QPainter& painter, const QRectF& box, const PictureLook& look, Cap cap,
              const char* word) {
    (look.usable ? paintCap : paintDimCap)(painter, box, look.unit, cap);
    const QRgb dark = look.usable ? kKeyText : kKeyTextOff;
    paintCapText(painter, box, look.unit, QColor(cap == Cap::Lit ? kLitText : dark),
                 look.caption.isEmpty() ? QString::fromUtf8(word) : look.caption);
}

template <std::size_t N>
struct Text {
    constexpr Text(const char (&from)[N]) { std::copy(from, from + N, text); }
    char text[N];
};

template <Text Word, Cap Face>
void key(QPainter& painter, const QRectF& box, const PictureLook& look) {
    paintKey(painter, box, look, Face, Word.text);
}

enum class RunMark { Play, Pause };

/// A key that runs or stops: its mark, green while the key is lit, and its words beside it.
template <RunMark Mark, Cap Face>
void runKey(QPainter& painter, const QRectF& box, const PictureLook& look) {
    paintCap(painter, box, look.unit, Face);
    const bool lit = Face == Cap::Lit;
    const qreal size = std::min(6 * look.unit, box.height() * 0.2);
    const QPointF centre(box.left() + 3.4 * size, box.center().y());
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(lit ? kRunMark : kKeyText));
    if (Mark == RunMark::Play) {
        painter.drawPolygon(QPolygonF(QList<QPointF>{centre + QPointF(-size * 0.8, -size),
                                                     centre + QPointF(size, 0),
                                                     centre + QPointF(-size * 0.8, size)}));
    } else {
        for (const qreal x : {-size, size * 0.3})
            painter.drawRect(QRectF(centre + QPointF(x, -size), QSizeF(size * 0.7, 2 * size)));
    }
    const QString words = look.caption.isEmpty()
                              ? QString::fromUtf8(Mark == RunMark::Play ? "START" : "PAUSE")
                              : look.caption;
    paintCapText(painter, box.adjusted(4.4 * size, 0, 0, 0), look.unit,
                 QColor(lit ? kLitText : kKeyText), words);
}

}  // namespace

const std::vector<NamedPicture>& keyPictures() {
    static const std::vector<NamedPicture> pictures = {
        {"msN", key<"AVG", Cap::Dark>},
        {"msA", key<"AVG", Cap::Lit>},
        {"PeakN", key<"PEAK", Cap::Dark>},
        {"PeakA", key<"PEAK", Cap::Lit>},
        {"MinN", key<"FOLD", Cap::Dark>},
        {"MinA", key<"FOLD", Cap::Lit>},
        {"PowerN", key<"POWER", Cap::Dark>},
        {"PowerA", key<"POWER", Cap::Lit>},
        {"AmN", key<"AM", Cap::Dark>},
        {"AmA", key<"AM", Cap::Lit>},
        {"LRN", key<"L | R", Cap::Dark>},
        {"LRA", key<"L | R", Cap::Lit>},
        {"LyRN", key<"L+R | L-R", Cap::Dark>},
        {"LyRA", key<"L+R | L-R", Cap::Lit>},
        {"SetN", key<"SET", Cap::Dark>},
        {"SetA", key<"SET", Cap::Lit>},
        {"RemoteN", key<"TUNER", Cap::Dark>},
        {"RemoteA", key<"TUNER", Cap::Lit>},
        {"ResN", key<"RES", Cap::Dark>},
        {"ResA", key<"RES", Cap::Lit>},
        {"OpenN", key<"OPEN", Cap::Dark>},
        {"OpenA", key<"OPEN", Cap::Lit>},
        {"LogN", key<"LOG", Cap::Dark>},
        {"LogA", key<"LOG", Cap::Lit>},
        {"OffN", key<"OFF", Cap::Dark>},
        {"OffA", key<"ON", Cap::Lit>},
        {"StartN", runKey<RunMark::Play, Cap::Dark>},
        {"StartA", runKey<RunMark::Play, Cap::Lit>},
        {"PauseN", runKey<RunMark::Pause, Cap::Dark>},
        {"PauseA", runKey<RunMark::Pause, Cap::Lit>},
        {"NextN", key<"\u25b6", Cap::Dark>},
        {"NextA", key<"\u25b6", Cap::Lit>},
        {"PrevN", key<"\u25c0", Cap::Dark>},
        {"PrevA", key<"\u25c0", Cap::Lit>},
    };
    return pictures;
}

}  // namespace display::qt
