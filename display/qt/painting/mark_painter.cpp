// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/mark_painter.h"

#include <QFontMetricsF>
#include <QImage>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

void MarkPainter::scale(const Scale& scale, float unit, float thinnest) {
    ratio_ = scale.deviceRatio();
    pxPerWidth_ = scale.px(15);
    pxPerUnit_ = scale.px(unit);
    if (pxPerTwip_ != scale.px(1)) fonts_.clear();
    pxPerTwip_ = scale.px(1);
    thinnest_ = scale.px(thinnest);
}

qreal MarkPainter::at(float units) const {
    return std::round(units * pxPerUnit_ * ratio_) / ratio_;
}

QRectF MarkPainter::box(const Mark& mark) const {
    // A box includes its last column and row of pixels.
    const qreal left = at(mark.x1), top = at(mark.y1);
    return {left, top, std::max(std::max(at(mark.x2) - left, 0.) + 1 / ratio_, thinnest_),
            std::max(std::max(at(mark.y2) - top, 0.) + 1 / ratio_, thinnest_)};
}

void MarkPainter::paint(QPainter& painter, const Mark& mark) {
    switch (mark.kind) {
        case Mark::Kind::Filled:
            painter.fillRect(box(mark), qColour(mark.colour));
            break;
        case Mark::Kind::Stroke:
            stroke(painter, mark);
            break;
        case Mark::Kind::Print:
            print(painter, mark);
            break;
        case Mark::Kind::Cells:
            cells(painter, mark);
            break;
    }
}

void MarkPainter::stroke(QPainter& painter, const Mark& mark) const {
    const QPointF from(at(mark.x1), at(mark.y1)), to(at(mark.x2), at(mark.y2));
    const qreal width = std::max(std::round(mark.lineWidth * pxPerWidth_ * ratio_), 1.) / ratio_;
    if (from.x() == to.x() || from.y() == to.y()) {
        // Horizontal and vertical lines are bars of whole pixels.
        const QPointF far = to - from;
        painter.fillRect(
            QRectF(std::min(from.x(), to.x()), std::min(from.y(), to.y()),
                   std::max(std::abs(far.x()), width), std::max(std::abs(far.y()), width)),
            qColour(mark.colour));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(qColour(mark.colour), width));
    painter.drawLine(from, to);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

const MarkPainter::SizedFont& MarkPainter::sizedFont(const Mark& mark) {
    const auto [place, isNew] = fonts_.try_emplace({mark.points, mark.bold});
    SizedFont& sized = place->second;
    if (isNew) {
        constexpr qreal kTwipsPerPoint = 20;
        sized.font = Fonts::get().font(mark.points * kTwipsPerPoint * pxPerTwip_,
                                       mark.bold ? Weight::Bold : Weight::Normal);
        sized.ascent = QFontMetricsF(sized.font).ascent();
    }
    return sized;
}

void MarkPainter::print(QPainter& painter, const Mark& mark) {
    const SizedFont& set = sizedFont(mark);
    painter.setFont(set.font);
    painter.setPen(qColour(mark.colour));
    painter.drawText(QPointF(at(mark.x1), at(mark.y1) + set.ascent),
                     QString::fromStdString(mark.text));
}

void MarkPainter::cells(QPainter& painter, const Mark& mark) const {
    const CellMap& map = *mark.map;
    const QRectF place(QPointF(at(mark.x1), at(mark.y1)), QPointF(at(mark.x2), at(mark.y2)));
    // Stretched, every cell has a pixel; a picture that was squeezed would leave cells out.
    const auto fitting = [this](qreal side, int cells) {
        return std::clamp(static_cast<int>(std::lround(side * ratio_)), 1, cells);
    };
    const int columns = fitting(place.width(), map.grid.columns);
    const int rows = fitting(place.height(), map.grid.rows);
    const bool allFit = columns == map.grid.columns && rows == map.grid.rows;
    const std::vector<std::uint32_t> shrunk =
        allFit ? std::vector<std::uint32_t>() : map.shrunk(columns, rows);
    const QImage pixels(reinterpret_cast<const uchar*>((allFit ? map.cells : shrunk).data()),
                        columns, rows, columns * static_cast<int>(sizeof(std::uint32_t)),
                        QImage::Format_ARGB32_Premultiplied);
    painter.drawImage(place, pixels);
}

}  // namespace display::qt
