// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPixmap>
#include <cmath>

#include "display/qt/faces.h"
#include "display/qt/painted.h"
#include "display/qt/palette.h"

namespace display::qt {

namespace {

/// The marks of a picture box, kept as a picture: only marks that came since the last look are
/// added, unless marks were dropped.
class PaintedDrawing final : public Painted {
 public:
    explicit PaintedDrawing(PictureBox& box) : box_(box) {}

    void prepare(const Scale& scale) override {
        const QRectF place = scale.snapped(box_.boxOnForm());
        const qreal pxPerUnit = scale.px(box_.drawing.unit());
        const bool anew = place.size() != place_.size() || pxPerUnit != pxPerUnit_ ||
                          ratio_ != scale.deviceRatio() || box_.drawing.rebuilt() != rebuilt_;
        place_ = place;
        pxPerUnit_ = pxPerUnit;
        pxPerTwip_ = scale.px(1);
        ratio_ = scale.deviceRatio();
        if (anew) begin();
        addMarks();
    }

    QRectF reach() const override { return place_; }

    void paint(QPainter& painter) override {
        if (!picture_.isNull()) painter.drawPixmap(place_.topLeft(), picture_);
    }

 private:
    void begin() {
        rebuilt_ = box_.drawing.rebuilt();
        newest_ = 0;
        const QSize size = (place_.size() * ratio_).toSize();
        picture_ = QPixmap(size);
        picture_.setDevicePixelRatio(ratio_);
        picture_.fill(Qt::transparent);
    }

    void addMarks() {
        const std::vector<Mark>& marks = box_.drawing.marks();
        if (marks.empty() || marks.back().number <= newest_ || picture_.isNull()) return;
        // The new marks stand at the end: find the first from behind.
        std::size_t first = marks.size();
        while (first > 0 && marks[first - 1].number > newest_) --first;
        QPainter painter(&picture_);
        for (std::size_t i = first; i < marks.size(); ++i) drawMark(painter, marks[i]);
        newest_ = marks.back().number;
    }

    qreal dot(float units) const { return std::round(units * pxPerUnit_ * ratio_) / ratio_; }

    void drawMark(QPainter& painter, const Mark& mark) {
        const QColor colour = qColour(mark.colour);
        switch (mark.kind) {
            case Mark::Kind::Filled:
                drawBox(painter, mark, colour);
                break;
            case Mark::Kind::Stroke:
                drawStroke(painter, mark, colour);
                break;
            case Mark::Kind::Print: {
                painter.setFont(Faces::get().font(mark.points * 20 * pxPerTwip_,
                                                  mark.bold ? Weight::Bold : Weight::Normal));
                painter.setPen(colour);
                const qreal ascent = QFontMetricsF(painter.font()).ascent();
                painter.drawText(QPointF(dot(mark.x1), dot(mark.y1) + ascent),
                                 QString::fromStdString(mark.text));
                break;
            }
        }
    }

    /// A box takes its last column and row of dots in.
    void drawBox(QPainter& painter, const Mark& mark, const QColor& colour) {
        const qreal one = 1 / ratio_;
        const qreal left = dot(mark.x1), top = dot(mark.y1);
        const qreal right = std::max(dot(mark.x2), left), bottom = std::max(dot(mark.y2), top);
        painter.fillRect(QRectF(left, top, right - left + one, bottom - top + one), colour);
    }

    void drawStroke(QPainter& painter, const Mark& mark, const QColor& colour) {
        const qreal width =
            std::max(std::round(mark.lineWidth * 15 * pxPerTwip_ * ratio_), 1.0) / ratio_;
        const QPointF from(dot(mark.x1), dot(mark.y1)), to(dot(mark.x2), dot(mark.y2));
        if (from.x() == to.x() || from.y() == to.y()) {
            const QRectF bar = QRectF(from, to).normalized();
            painter.fillRect(QRectF(bar.topLeft(), QSizeF(std::max(bar.width(), width),
                                                          std::max(bar.height(), width))),
                             colour);
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(colour, width));
        painter.drawLine(from, to);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    PictureBox& box_;
    QPixmap picture_;
    QRectF place_;
    qreal pxPerUnit_ = 0, pxPerTwip_ = 0, ratio_ = 0;
    std::uint64_t rebuilt_ = 0, newest_ = 0;
};

}  // namespace

std::unique_ptr<Painted> paintedDrawing(PictureBox& box) {
    return std::make_unique<PaintedDrawing>(box);
}

}  // namespace display::qt
