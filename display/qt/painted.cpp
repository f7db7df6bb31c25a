// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painted.h"

#include <QImage>
#include <QLinearGradient>
#include <array>
#include <cmath>

#include "display/qt/control_widget.h"
#include "display/qt/faces.h"
#include "display/qt/palette.h"
#include "display/qt/pictures.h"
#include "display/qt/surfaces.h"

namespace display::qt {

QPointF onForm(const Control& control, float x, float y) {
    for (const Panel* in = control.container; in; in = in->container) {
        x = in->left + x * in->unit;
        y = in->top + y * in->unit;
    }
    return {x, y};
}

namespace {

constexpr qreal kTwipsPerPixel = 10;

/// The element of a segment digit between two points: a bar with pointed ends.
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

/// A segment as dots, cast once for each of the two colours that it changes between: it is laid on
/// the screen far more often than it is lit.
class SegmentCast {
 public:
    void shape(const QPolygonF& outline, const Scale& scale) {
        if (outline == outline_ && scale.deviceRatio() == ratio_) return;
        outline_ = outline;
        ratio_ = scale.deviceRatio();
        box_ = scale.around(outline.boundingRect().adjusted(-1, -1, 1, 1));
        casts_ = {};
    }

    void paint(QPainter& painter, const QColor& colour) {
        // Paper has its own, finer dots.
        const bool scaled = painter.worldTransform().type() > QTransform::TxTranslate;
        if (scaled || painter.device()->devicePixelRatio() != ratio_) {
            fill(painter, colour);
        } else {
            painter.drawImage(box_.topLeft(), cast(colour));
        }
    }

 private:
    struct Cast {
        QRgb colour = 0;
        QImage dots;
    };

    void fill(QPainter& painter, const QColor& colour) const {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawConvexPolygon(outline_);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    const QImage& cast(const QColor& colour) {
        for (const Cast& made : casts_) {
            if (!made.dots.isNull() && made.colour == colour.rgb()) return made.dots;
        }
        std::swap(casts_[0], casts_[1]);
        Cast& made = casts_[0];
        made.colour = colour.rgb();
        made.dots =
            QImage((QSizeF(box_.size()) * ratio_).toSize(), QImage::Format_ARGB32_Premultiplied);
        made.dots.setDevicePixelRatio(ratio_);
        made.dots.fill(Qt::transparent);
        QPainter painter(&made.dots);
        painter.translate(-box_.topLeft());
        fill(painter, colour);
        return made.dots;
    }

    QPolygonF outline_;
    QRect box_;
    qreal ratio_ = 0;
    std::array<Cast, 2> casts_;
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
        if (stroke_ == Stroke::Segment) segment_.shape(segmentOutline(from_, to_, width_), scale);
        if (straight_) makeBar(scale);
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
        if (stroke_ == Stroke::Segment) {
            segment_.paint(painter, colour_);
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(colour_, width_, Qt::SolidLine,
                            stroke_ == Stroke::Round ? Qt::RoundCap : Qt::FlatCap));
        painter.drawLine(from_, to_);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

 private:
    /// A level or upright line is a bar of whole device pixels.
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
    SegmentCast segment_;
    QColor colour_;
    qreal width_ = 1;
    Stroke stroke_ = Stroke::Plain;
    bool straight_ = false;
};

class PaintedShape final : public Painted {
 public:
    explicit PaintedShape(Shape& shape) : shape_(shape) {}

    void prepare(const Scale& scale) override {
        box_ = scale.snapped(shape_.boxOnForm());
        radius_ = scale.px(3 * kTwipsPerPixel);
        outline_ = shape_.outline;
        brush_ = qColour(shape_.colour);
        if (!(shape_.colour.get() == shape_.fadesFrom.get())) {
            QLinearGradient fade(box_.topLeft(), box_.topRight());
            fade.setColorAt(0, qColour(shape_.fadesFrom));
            fade.setColorAt(1, qColour(shape_.colour));
            brush_ = fade;
        }
    }

    QRectF reach() const override { return box_; }

    void paint(QPainter& painter) override {
        if (outline_ == Outline::Rectangle) {
            painter.fillRect(box_, brush_);
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush_);
        if (outline_ == Outline::Oval) {
            painter.drawEllipse(box_);
        } else {
            painter.drawRoundedRect(box_, radius_, radius_);
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

 private:
    Shape& shape_;
    QRectF box_;
    QBrush brush_;
    qreal radius_ = 0;
    Outline outline_ = Outline::Rectangle;
};

class PaintedPicture final : public Painted {
 public:
    explicit PaintedPicture(Picture& picture) : picture_(picture) {}

    void prepare(const Scale& scale) override {
        box_ = scale.snapped(picture_.boxOnForm());
        look_.caption = qText(picture_.caption);
        look_.unit = scale.px(kTwipsPerPixel);
    }

    QRectF reach() const override { return box_; }

    void paint(QPainter& painter) override {
        if (picture_.picture.empty() || box_.isEmpty()) return;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, true);
        paintPicture(painter, picture_.picture, box_, look_);
        painter.restore();
    }

 private:
    Picture& picture_;
    QRectF box_;
    PictureLook look_;
};

class PaintedPanel final : public Painted {
 public:
    explicit PaintedPanel(Panel& panel) : panel_(panel) {}

    void prepare(const Scale& scale) override {
        box_ = scale.snapped(panel_.boxOnForm());
        unit_ = scale.px(kTwipsPerPixel);
        caption_ = qText(panel_.caption);
    }

    QRectF reach() const override {
        return panel_.surface == Surface::None && caption_.isEmpty() ? QRectF() : box_;
    }

    void paint(QPainter& painter) override {
        paintSurface(painter, panel_.surface, box_, unit_);
        if (caption_.isEmpty()) return;
        painter.setFont(Faces::get().font(14 * unit_, Weight::Bold));
        const bool light = panel_.surface == Surface::Plate || panel_.surface == Surface::Sheet;
        painter.setPen(QColor(light ? kLitText : kText));
        painter.drawText(box_, Qt::AlignCenter, caption_);
    }

 private:
    Panel& panel_;
    QRectF box_;
    QString caption_;
    qreal unit_ = 1;
};

}  // namespace

std::unique_ptr<Painted> paintedLine(Line& line) {
    return std::make_unique<PaintedLine>(line);
}
std::unique_ptr<Painted> paintedShape(Shape& shape) {
    return std::make_unique<PaintedShape>(shape);
}
std::unique_ptr<Painted> paintedPicture(Picture& picture) {
    return std::make_unique<PaintedPicture>(picture);
}
std::unique_ptr<Painted> paintedPanel(Panel& panel) {
    return std::make_unique<PaintedPanel>(panel);
}

}  // namespace display::qt
