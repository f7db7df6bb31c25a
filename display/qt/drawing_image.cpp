// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/drawing_image.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "display/qt/faces.h"
#include "display/qt/palette.h"

namespace display::qt {

namespace {

qint64 areaOf(const QRect& rect) {
    return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height();
}

/// The columns of graphs are narrow and there are hundreds of them: each width has a loop of its
/// own that the compiler lays out.
template <int Width>
void fillNarrow(QRgb* row, const QRgb* end, qsizetype stride, QRgb value) {
    for (; row < end; row += stride) {
        for (int x = 0; x < Width; ++x) row[x] = value;
    }
}

constexpr std::array kNarrow = {&fillNarrow<1>, &fillNarrow<2>, &fillNarrow<3>, &fillNarrow<4>,
                                &fillNarrow<5>, &fillNarrow<6>, &fillNarrow<7>, &fillNarrow<8>};

}  // namespace

void DrawingImage::begin(QSize dots, const Scale& scale, float unit) {
    const qreal pxPerTwip = scale.px(1);
    if (pxPerTwip != pxPerTwip_) faces_.clear();
    pxPerTwip_ = pxPerTwip;
    ratio_ = scale.deviceRatio();
    dotsPerUnit_ = scale.px(unit) * ratio_;
    if (image_.size() != dots) image_ = QImage(dots, QImage::Format_ARGB32_Premultiplied);
    image_.setDevicePixelRatio(ratio_);
    filled_ = QRect();
    begun_ = true;
}

int DrawingImage::dot(float units) const {
    return static_cast<int>(std::lround(units * dotsPerUnit_));
}

QRect DrawingImage::dotsOf(const Mark& box) const {
    // A box takes its last column and row of dots in.
    const int left = dot(box.x1), top = dot(box.y1);
    return {left, top, std::max(dot(box.x2) - left, 0) + 1, std::max(dot(box.y2) - top, 0) + 1};
}

void DrawingImage::add(const std::vector<Mark>& marks, std::size_t first) {
    if (image_.isNull()) return;
    for (std::size_t i = first; i < marks.size(); ++i) {
        if (marks[i].kind != Mark::Kind::Filled) continue;
        const QRect dots = dotsOf(marks[i]) & image_.rect();
        if (areaOf(dots) > areaOf(filled_)) filled_ = dots;
    }
    // What a box fills need not be wiped before.
    if (begun_) clearAround(filled_);
    begun_ = false;
    for (std::size_t i = first; i < marks.size(); ++i) {
        switch (marks[i].kind) {
            case Mark::Kind::Filled:
                fillBox(marks[i]);
                break;
            case Mark::Kind::Stroke:
                drawStroke(marks[i]);
                break;
            case Mark::Kind::Print:
                print(marks[i]);
                break;
        }
    }
    painter_.reset();
}

void DrawingImage::clearAround(const QRect& filled) {
    if (filled.isEmpty()) {
        image_.fill(Qt::transparent);
        return;
    }
    const QRegion around = QRegion(image_.rect()) - filled;
    for (const QRect& part : around) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            std::fill_n(reinterpret_cast<QRgb*>(image_.scanLine(y)) + part.left(), part.width(),
                        QRgb{0});
        }
    }
}

void DrawingImage::fill(const QRect& dots, const Colour& colour) {
    const QRect seen = dots & image_.rect();
    if (seen.isEmpty()) return;
    const QRgb value = qColour(colour).rgb();
    const qsizetype stride = image_.bytesPerLine() / qsizetype{sizeof(QRgb)};
    QRgb* row = reinterpret_cast<QRgb*>(image_.bits()) + seen.top() * stride + seen.left();
    const QRgb* const end = row + seen.height() * stride;
    const auto width = static_cast<std::size_t>(seen.width());
    if (width <= kNarrow.size()) {
        kNarrow[width - 1](row, end, stride, value);
        return;
    }
    for (; row < end; row += stride) std::fill_n(row, width, value);
}

void DrawingImage::fillBox(const Mark& mark) {
    fill(dotsOf(mark), mark.colour);
}

void DrawingImage::drawStroke(const Mark& mark) {
    const int width =
        std::max(static_cast<int>(std::lround(mark.lineWidth * 15 * pxPerTwip_ * ratio_)), 1);
    const QPoint from(dot(mark.x1), dot(mark.y1)), to(dot(mark.x2), dot(mark.y2));
    if (from.x() == to.x() || from.y() == to.y()) {
        const QPoint corner(std::min(from.x(), to.x()), std::min(from.y(), to.y()));
        const QPoint reach = from - to;
        fill(QRect(corner, QSize(std::max(std::abs(reach.x()), width),
                                 std::max(std::abs(reach.y()), width))),
             mark.colour);
        return;
    }
    QPainter& pen = painter();
    pen.setRenderHint(QPainter::Antialiasing, true);
    pen.setPen(QPen(qColour(mark.colour), width / ratio_));
    pen.drawLine(QPointF(from) / ratio_, QPointF(to) / ratio_);
    pen.setRenderHint(QPainter::Antialiasing, false);
}

const DrawingImage::Face& DrawingImage::face(const Mark& mark) {
    const auto [place, isNew] = faces_.try_emplace({mark.points, mark.bold});
    Face& face = place->second;
    if (isNew) {
        face.font = Faces::get().font(mark.points * 20 * pxPerTwip_,
                                      mark.bold ? Weight::Bold : Weight::Normal);
        face.ascent = QFontMetricsF(face.font).ascent();
    }
    return face;
}

void DrawingImage::print(const Mark& mark) {
    const Face& wanted = face(mark);
    QPainter& pen = painter();
    pen.setFont(wanted.font);
    pen.setPen(qColour(mark.colour));
    pen.drawText(QPointF(dot(mark.x1) / ratio_, dot(mark.y1) / ratio_ + wanted.ascent),
                 QString::fromStdString(mark.text));
}

QPainter& DrawingImage::painter() {
    if (!painter_) painter_.emplace(&image_);
    return *painter_;
}

void DrawingImage::paint(QPainter& painter, QPointF at) const {
    if (image_.isNull() || begun_) return;
    if (!filled_.isEmpty()) paintPart(painter, at, filled_, QImage::Format_RGB32);
    for (const QRect& rest : QRegion(image_.rect()) - filled_) {
        paintPart(painter, at, rest, image_.format());
    }
}

void DrawingImage::paintPart(QPainter& painter, QPointF at, const QRect& part,
                             QImage::Format as) const {
    const uchar* corner = image_.constScanLine(part.top()) + part.left() * qsizetype{sizeof(QRgb)};
    QImage seen(corner, part.width(), part.height(), image_.bytesPerLine(), as);
    seen.setDevicePixelRatio(ratio_);
    painter.drawImage(at + QPointF(part.topLeft()) / ratio_, seen);
}

}  // namespace display::qt
