// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/painted.h"

#include <QLinearGradient>
#include <QString>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/pictures.h"
#include "display/qt/painting/surfaces.h"
#include "display/qt/widgets/control_widget.h"

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
        look_.usable = picture_.usable();
    }

    QRectF reach() const override { return box_; }

    void paint(QPainter& painter) override {
        if (box_.isEmpty()) return;
        const bool bordered = picture_.border == Border::Plain;
        if (bordered) paintBorder(painter);
        if (picture_.picture.empty()) return;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, true);
        // The picture keeps clear of the border.
        const qreal aside = bordered ? 8 * look_.unit : 0;
        paintPicture(painter, picture_.picture, box_.adjusted(aside, 0, -aside, 0), look_);
        painter.restore();
    }

 private:
    void paintBorder(QPainter& painter) const {
        const QColor colour(standsOnLight(picture_) ? kPaperLine : kWellRim);
        const qreal wide = look_.unit;
        painter.fillRect(QRectF(box_.left(), box_.top(), box_.width(), wide), colour);
        painter.fillRect(QRectF(box_.left(), box_.bottom() - wide, box_.width(), wide), colour);
        painter.fillRect(QRectF(box_.left(), box_.top(), wide, box_.height()), colour);
        painter.fillRect(QRectF(box_.right() - wide, box_.top(), wide, box_.height()), colour);
    }

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
        painter.setFont(Fonts::get().font(14 * unit_, Weight::Bold));
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
