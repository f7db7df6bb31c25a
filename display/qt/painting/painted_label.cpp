// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontMetricsF>
#include <QString>

#include "display/qt/painting/fonts.h"

#include <memory>

#include "display/qt/painting/painted.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/surfaces.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

namespace {

constexpr qreal kTwipsPerPoint = 10;
constexpr qreal kPlateEdge = 120;  ///< twips

class PaintedLabel final : public Painted {
 public:
    explicit PaintedLabel(Label& label) : label_(label) {}

    void prepare(const Scale& scale) override {
        box_ = scale.snapped(label_.boxOnForm());
        unit_ = scale.px(kTwipsPerPoint);
        colour_ = qColour(label_.colour);
        const display::Font& wanted = label_.font;
        if (!(wanted == fontOf_) || height_ != scale.px(wanted.size)) {
            fontOf_ = wanted;
            height_ = scale.px(wanted.size);
            font_ = Fonts::get().font(height_, wanted.weight, wanted.spaced);
            const QFontMetricsF metrics(font_);
            ascent_ = metrics.ascent();
            line_ = metrics.height();
        }
        textOf_ = qText(label_.caption);
        placeText(scale);
    }

    QRectF reach() const override {
        const QRectF text = textOf_.isEmpty() ? QRectF() : textBox_.adjusted(-1, -1, 1, 1);
        return label_.surface == Surface::None && !text.isEmpty() ? text : box_.united(text);
    }

    void paint(QPainter& painter) override {
        paintSurface(painter, label_.surface, box_, unit_);
        if (textOf_.isEmpty()) return;
        painter.setFont(font_);
        painter.setPen(colour_);
        if (flowing_) {
            painter.drawText(textBox_, flags(), textOf_);
        } else {
            painter.drawText(textBox_.topLeft() + QPointF(0, ascent_), textOf_);
        }
    }

 private:
    int flags() const {
        const int across = label_.align == Align::Right    ? Qt::AlignRight
                           : label_.align == Align::Centre ? Qt::AlignHCenter
                                                           : Qt::AlignLeft;
        return across | Qt::AlignVCenter | (label_.wraps ? Qt::TextWordWrap : 0);
    }

    void placeText(const Scale& scale) {
        flowing_ = label_.wraps || textOf_.contains('\n');
        if (flowing_) {
            const QFontMetricsF metrics(font_);
            const QRectF needed = metrics.boundingRect(box_, flags(), textOf_);
            // A text that is higher than its box begins at the box's top.
            textBox_ = needed.height() > box_.height()
                           ? QRectF(box_.left(), box_.top(), box_.width(), needed.height() + 1)
                           : box_.united(needed);
            return;
        }
        const QFontMetricsF metrics(font_);
        // On a plate the text keeps clear of the edge; a text that the user wrote may be wider than
        // the plate.
        const bool plated = label_.surface != Surface::None;
        const qreal edge = plated ? scale.px(kPlateEdge) : 0;
        QSizeF size(metrics.horizontalAdvance(textOf_), line_);
        if (plated && size.width() > box_.width() - edge) {
            textOf_ = metrics.elidedText(textOf_, Qt::ElideRight, box_.width() - 2 * edge);
            size.setWidth(metrics.horizontalAdvance(textOf_));
        }
        qreal x = box_.left() + edge;
        if (label_.align == Align::Right) x = box_.right() - edge - size.width();
        if (label_.align == Align::Centre) x = box_.center().x() - size.width() / 2;
        // Labels of equal height get their baselines equally far down, wherever their edges are
        // rounded to.
        const qreal y = box_.top() + (scale.px(label_.boxOnForm().height) - size.height()) / 2;
        textBox_ = QRectF(QPointF(scale.snapped(x), scale.snapped(y)), size);
    }

    Label& label_;
    QFont font_;
    QString textOf_;
    QRectF box_, textBox_;
    QColor colour_;
    display::Font fontOf_{-1};
    qreal height_ = 0, ascent_ = 0, line_ = 0;
    qreal unit_ = 1;
    bool flowing_ = false;
};

}  // namespace

std::unique_ptr<Painted> paintedLabel(Label& label) {
    return std::make_unique<PaintedLabel>(label);
}

}  // namespace display::qt
