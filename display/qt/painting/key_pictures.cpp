// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/key_pictures.h"

#include <QPainter>
#include <QPolygonF>
#include <QString>
#include <algorithm>

#include "display/qt/painting/key_cap.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

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

/// A key that starts or pauses a run: its symbol, green while the key is lit, and words beside it.
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
        {"HistoryN", key<"HISTORY", Cap::Dark>},
        {"HistoryA", key<"HISTORY", Cap::Lit>},
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
