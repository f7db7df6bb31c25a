// SPDX-License-Identifier: GPL-3.0-or-later
#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>

#include "display/qt/painting/painted.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

namespace {

/// A segment of a digit between two points: a bar with pointed ends.
QPolygonF segmentOutline(QPointF from, QPointF to, qreal width) {
    const QLineF line(from, to);
    const qreal half = width / 2;
    const QPointF along = line.length() > 0
                              ? QPointF(line.dx() / line.length(), line.dy() / line.length())
                              : QPointF(1, 0);
    const QPointF across(-along.y() * half, along.x() * half);
    const QPointF step = along * half;
    return {QList<QPointF>{from, from + step + across, to - step + across, to, to - step - across,
                           from + step - across}};
}

/// Paper has a resolution of its own, finer than that of the images made for the screen.
bool onPaper(const QPainter& painter, qreal ratio) {
    return painter.worldTransform().type() > QTransform::TxTranslate ||
           painter.device()->devicePixelRatio() != ratio;
}

/// The round end of a stroke as an image: QPainter takes ten times as long for round ends as for
/// the whole stroke, and needles move in every frame.
class RoundEnd {
 public:
    /// Draws it around a point in logical pixels; the stroke ends there, coming from the side
    /// opposite to `outward`.
    void shape(QPointF at, QPointF outward, qreal width, const QColor& colour, qreal ratio) {
        const QPointF middle = at * ratio;
        const qreal radius = width * ratio / 2;
        const QRect box = QRectF(middle.x() - radius, middle.y() - radius, 2 * radius, 2 * radius)
                              .toAlignedRect();
        corner_ = QPointF(box.topLeft()) / ratio;
        if (pixels_.size() != box.size()) {
            pixels_ = QImage(box.size(), QImage::Format_ARGB32_Premultiplied);
        }
        pixels_.setDevicePixelRatio(ratio);
        for (int y = 0; y < box.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(pixels_.scanLine(y));
            const qreal down = box.top() + y + 0.5 - middle.y();
            for (int x = 0; x < box.width(); ++x) {
                const qreal right = box.left() + x + 0.5 - middle.x();
                const bool inStroke = right * outward.x() + down * outward.y() < -kOverlap;
                const qreal cover = radius + 0.5 - std::sqrt(right * right + down * down);
                row[x] = inStroke || cover <= 0 ? 0 : shade(colour, std::min(cover, 1.0));
            }
        }
    }

    void paint(QPainter& painter) const { painter.drawImage(corner_, pixels_); }

 private:
    /// In pixels; so much overlap that no seam is left between end and stroke.
    static constexpr qreal kOverlap = 0.7;

    static QRgb shade(const QColor& colour, qreal cover) {
        return qPremultiply(qRgba(colour.red(), colour.green(), colour.blue(),
                                  static_cast<int>(std::lround(cover * 255))));
    }

    QImage pixels_;
    QPointF corner_;
};

class PaintedLine final : public Painted {
 public:
    explicit PaintedLine(Line& line) : line_(line) {}

    void prepare(const Scale& scale) override {
        const QPointF a = onForm(line_, line_.x1, line_.y1);
        const QPointF b = onForm(line_, line_.x2, line_.y2);
        from_ = QPointF(scale.px(a.x()), scale.px(a.y()));
        to_ = QPointF(scale.px(b.x()), scale.px(b.y()));
        width_ = std::max(scale.px(line_.thickness * 15.0), 1 / scale.deviceRatio());
        colour_ = qColour(line_.colour);
        stroke_ = line_.stroke;
        straight_ = stroke_ == Stroke::Plain && (a.x() == b.x() || a.y() == b.y());
        if (stroke_ == Stroke::Segment) segment_ = segmentOutline(from_, to_, width_);
        if (straight_) makeBar(scale);
        if (stroke_ == Stroke::Round) roundEnds(scale.deviceRatio());
    }

    QRectF reach() const override {
        if (straight_) return bar_;
        const qreal pad = width_ / 2 + 1;
        return QRectF(from_, to_).normalized().adjusted(-pad, -pad, pad, pad);
    }

    void paint(QPainter& painter) override {
        if (straight_) {
            painter.fillRect(bar_, colour_);
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing, true);
        if (stroke_ == Stroke::Segment) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour_);
            painter.drawConvexPolygon(segment_);
            painter.setRenderHint(QPainter::Antialiasing, false);
            return;
        }
        const bool round = stroke_ == Stroke::Round;
        const bool byPainter = round && onPaper(painter, ratio_);
        painter.setPen(
            QPen(colour_, width_, Qt::SolidLine, byPainter ? Qt::RoundCap : Qt::FlatCap));
        painter.drawLine(from_, to_);
        painter.setRenderHint(QPainter::Antialiasing, false);
        if (!round || byPainter) return;
        for (const RoundEnd& end : ends_) end.paint(painter);
    }

 private:
    void roundEnds(qreal ratio) {
        ratio_ = ratio;
        const QLineF line(from_, to_);
        const QPointF along = line.length() > 0 ? (to_ - from_) / line.length() : QPointF(1, 0);
        ends_[0].shape(from_, -along, width_, colour_, ratio);
        ends_[1].shape(to_, along, width_, colour_, ratio);
    }

    /// A horizontal or vertical line is a bar of whole device pixels.
    void makeBar(const Scale& scale) {
        const qreal width = std::max(scale.snapped(width_), 1 / scale.deviceRatio());
        const QRectF between = QRectF(from_, to_).normalized();
        const qreal x = scale.snapped(between.left()), y = scale.snapped(between.top());
        if (line_.x1 == line_.x2) {
            bar_ = QRectF(scale.snapped(between.left() - width / 2), y, width,
                          scale.snapped(between.bottom()) - y);
        } else {
            bar_ = QRectF(x, scale.snapped(between.top() - width / 2),
                          scale.snapped(between.right()) - x, width);
        }
    }

    Line& line_;
    QPointF from_, to_;
    QRectF bar_;
    QPolygonF segment_;
    std::array<RoundEnd, 2> ends_;
    QColor colour_;
    qreal width_ = 1, ratio_ = 0;
    Stroke stroke_ = Stroke::Plain;
    bool straight_ = false;
};

}  // namespace

std::unique_ptr<Painted> paintedLine(Line& line) {
    return std::make_unique<PaintedLine>(line);
}

}  // namespace display::qt
