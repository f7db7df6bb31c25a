// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/drawing_image.h"

#include <algorithm>
#include <cmath>

#include "display/qt/palette.h"

namespace display::qt {

namespace {

/// Marks are laid on a few rows at a time, which a cache holds: a graph is hundreds of narrow
/// columns, and each on its own would touch every row of the picture.
constexpr int kBandBytes = 128 * 1024;

qint64 areaOf(const DotBox& box) {
    return qint64{box.width()} * box.height();
}

}  // namespace

void DrawingImage::begin(QSize dots, const Scale& scale, float unit) {
    ratio_ = scale.deviceRatio();
    dotsPerWidth_ = scale.px(15) * ratio_;
    texts_.setScale(scale.px(1), ratio_);
    dotsPerUnit_ = scale.px(unit) * ratio_;
    if (image_.size() != dots) image_ = QImage(dots, QImage::Format_ARGB32_Premultiplied);
    image_.setDevicePixelRatio(ratio_);
    filled_ = DotBox();
    begun_ = true;
}

int DrawingImage::dot(float units) const {
    return static_cast<int>(std::lround(units * dotsPerUnit_));
}

DotBox DrawingImage::dotsOf(const Mark& box) const {
    // A box takes its last column and row of dots in.
    const int left = dot(box.x1), top = dot(box.y1);
    return {left, top, std::max(dot(box.x2), left) + 1, std::max(dot(box.y2), top) + 1};
}

void DrawingImage::add(const std::vector<Mark>& marks, std::size_t first) {
    if (image_.isNull()) return;
    pieces_.clear();
    strokes_.clear();
    prints_.clear();
    texts_.trim();
    for (std::size_t i = first; i < marks.size(); ++i) addPiece(marks[i]);
    const DotBox all = DotBox::of(image_.rect());
    DotBox touched{0, all.bottom, all.right, 0};
    for (const Piece& piece : pieces_) {
        touched.top = std::min(touched.top, piece.reach.top);
        touched.bottom = std::max(touched.bottom, piece.reach.bottom);
    }
    layBands(begun_ ? all : touched);
    begun_ = false;
}

void DrawingImage::addPiece(const Mark& mark) {
    Piece piece{mark.kind, qColour(mark.colour).rgb(), 0, dotsOf(mark)};
    if (mark.kind == Mark::Kind::Print) {
        const TextMask& text = texts_.of(mark.text, mark.points, mark.bold);
        piece.index = prints_.size();
        prints_.push_back({&text, QPoint(dot(mark.x1), dot(mark.y1))});
        piece.reach = text.reach(prints_.back().at);
    } else if (mark.kind == Mark::Kind::Stroke) {
        takeStroke(mark, piece);
    }
    piece.reach = piece.reach & DotBox::of(image_.rect());
    if (piece.reach.empty()) return;
    if (mark.kind == Mark::Kind::Filled && areaOf(piece.reach) > areaOf(filled_)) {
        filled_ = piece.reach;
    }
    pieces_.push_back(piece);
}

void DrawingImage::takeStroke(const Mark& mark, Piece& piece) {
    const QPoint from(dot(mark.x1), dot(mark.y1)), to(dot(mark.x2), dot(mark.y2));
    const int width = std::max(static_cast<int>(std::lround(mark.lineWidth * dotsPerWidth_)), 1);
    if (from.x() != to.x() && from.y() != to.y()) {
        piece.index = strokes_.size();
        strokes_.emplace_back(from, to, width);
        piece.reach = strokes_.back().reach();
        return;
    }
    const int left = std::min(from.x(), to.x()), top = std::min(from.y(), to.y());
    const QPoint far = from - to;
    piece.kind = Mark::Kind::Filled;
    piece.reach = {left, top, left + std::max(std::abs(far.x()), width),
                   top + std::max(std::abs(far.y()), width)};
}

void DrawingImage::layBands(const DotBox& touched) {
    if (touched.empty()) return;
    const DotRows rows(image_);
    const int height = std::max(kBandBytes / static_cast<int>(image_.bytesPerLine()), 1);
    DotBox band = touched;
    for (; band.top < touched.bottom; band.top = band.bottom) {
        band.bottom = std::min(band.top + height, touched.bottom);
        if (begun_) clearAround(rows, band);
        layBand(rows, band);
    }
}

void DrawingImage::layBand(const DotRows& rows, const DotBox& band) const {
    for (const Piece& piece : pieces_) {
        const DotBox seen = piece.reach & band;
        if (seen.empty()) continue;
        switch (piece.kind) {
            case Mark::Kind::Filled:
                rows.fill(seen, piece.colour);
                break;
            case Mark::Kind::Stroke:
                strokes_[piece.index].lay(rows, seen, piece.colour);
                break;
            case Mark::Kind::Print:
                prints_[piece.index].text->lay(rows, prints_[piece.index].at, seen, piece.colour);
                break;
        }
    }
}

/// What a box fills need not be wiped before.
void DrawingImage::clearAround(const DotRows& rows, const DotBox& band) const {
    const DotBox filled = filled_ & band;
    if (filled.empty()) {
        rows.fill(band, 0);
        return;
    }
    rows.fill({band.left, band.top, band.right, filled.top}, 0);
    rows.fill({band.left, filled.top, filled.left, filled.bottom}, 0);
    rows.fill({filled.right, filled.top, band.right, filled.bottom}, 0);
    rows.fill({band.left, filled.bottom, band.right, band.bottom}, 0);
}

void DrawingImage::paint(QPainter& painter, QPointF at) const {
    if (image_.isNull() || begun_) return;
    if (!filled_.empty()) paintPart(painter, at, filled_.rect(), QImage::Format_RGB32);
    for (const QRect& rest : QRegion(image_.rect()) - filled_.rect()) {
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
