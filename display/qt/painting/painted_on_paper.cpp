// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/painted_on_paper.h"

#include <QPainter>
#include <QString>
#include <utility>

#include <QFontMetricsF>

#include "display/chart.h"
#include "display/controls/buttons.h"
#include "display/controls/control_visitor.h"
#include "display/controls/lists.h"
#include "display/controls/plot.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/text_field.h"
#include "display/page.h"
#include "display/qt/painting/chart_painter.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/mark_painter.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/plot_painter.h"
#include "display/qt/painting/surfaces.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/widgets/scroll_bar_widget.h"

namespace display::qt {

namespace {

constexpr float kPixel = 10;  ///< twips of a pixel at the natural size

/// The base of all controls on paper: the control, its box and the units of the paper.
template <class C>
class OnPaper : public Painted {
 public:
    explicit OnPaper(C& control) : control_(control) {}
    void prepare(const Scale& scale) override {
        box_ = scale.snapped(control_.boxOnForm());
        twip_ = scale.px(1);
    }
    QRectF reach() const override { return box_; }

 protected:
    C& control_;
    QRectF box_;
    qreal twip_ = 1;
};

class ChartOnPaper final : public OnPaper<Chart> {
 public:
    using OnPaper::OnPaper;
    void paint(QPainter& painter) override { paintChart(painter, control_, box_, twip_); }
};

class PlotOnPaper final : public OnPaper<Plot> {
 public:
    using OnPaper::OnPaper;
    void prepare(const Scale& scale) override {
        OnPaper::prepare(scale);
        devicePixels_ = scale.deviceRatio();
    }
    void paint(QPainter& painter) override {
        paintPlot(painter, control_, {box_, twip_, devicePixels_});
    }

 private:
    qreal devicePixels_ = 1;
};

class KeyOnPaper final : public OnPaper<Key> {
 public:
    using OnPaper::OnPaper;
    void paint(QPainter& painter) override {
        painter.save();
        paintPushKey(painter, box_,
                     {qText(control_.caption), control_.colour, control_.lit ? Cap::Lit : Cap::Dark,
                      kPixel * twip_, control_.usable()});
        painter.restore();
    }
};

class ScrollBarOnPaper final : public OnPaper<ScrollBar> {
 public:
    using OnPaper::OnPaper;
    void paint(QPainter& painter) override {
        const qreal pixel = kPixel * twip_;
        painter.save();
        painter.translate(box_.topLeft());
        painter.scale(pixel, pixel);
        paintScrollBar(painter, control_, box_.size() / pixel, 1,
                       control_.usable() ? Thumb::Free : Thumb::Unusable);
        painter.restore();
    }
};

/// A text field. On white paper only its text is printed, in as many lines as needed, and smaller
/// where the box has no room; elsewhere the field's background is printed too, with one line of
/// text.
class FieldOnPaper final : public OnPaper<TextField> {
 public:
    using OnPaper::OnPaper;
    void paint(QPainter& painter) override {
        constexpr qreal kEdge = 50;
        painter.save();
        const bool paper = standsOnLight(control_);
        if (!paper) {
            painter.setPen(QPen(QColor(kWellRim), kPixel * twip_));
            painter.setBrush(QColor(kField));
            painter.drawRect(box_);
        }
        painter.setClipRect(box_, Qt::IntersectClip);
        painter.setPen(qColour(control_.colour));
        const int across = control_.align == Align::Right    ? Qt::AlignRight
                           : control_.align == Align::Centre ? Qt::AlignHCenter
                                                             : Qt::AlignLeft;
        const int flags = across | (paper ? Qt::AlignTop | Qt::TextWrapAnywhere | Qt::TextWordWrap
                                          : Qt::AlignVCenter | Qt::TextSingleLine);
        const QRectF room = box_.adjusted(kEdge * twip_, 0, -kEdge * twip_, 0);
        const QString words = qText(control_.text.get());
        painter.setFont(paper ? fitting(room, flags, words) : ofHeight(control_.font.get().size));
        painter.drawText(room, flags, words);
        painter.restore();
    }

 private:
    QFont ofHeight(qreal twips) const {
        return Fonts::get().font(twips * twip_, control_.font.get().weight);
    }
    QFont fitting(const QRectF& room, int flags, const QString& words) const {
        constexpr qreal kSmaller = 0.92;
        constexpr qreal kSmallest = 0.3;
        const qreal wanted = control_.font.get().size;
        for (qreal size = wanted; size > kSmallest * wanted; size *= kSmaller) {
            QFont font = ofHeight(size);
            if (QFontMetricsF(font).boundingRect(room, flags, words).height() <= room.height())
                return font;
        }
        return ofHeight(kSmallest * wanted);
    }
};

class DrawingOnPaper final : public OnPaper<PictureBox> {
 public:
    using OnPaper::OnPaper;
    void prepare(const Scale& scale) override {
        OnPaper::prepare(scale);
        // A box of no width is one pixel wide, and a pixel of paper is too small to see.
        marks_.scale(scale, control_.drawing.unit(), kPixel);
    }
    void paint(QPainter& painter) override {
        painter.save();
        painter.setClipRect(box_, Qt::IntersectClip);
        painter.translate(box_.topLeft());
        for (const Mark& mark : control_.drawing.marks()) marks_.paint(painter, mark);
        painter.restore();
    }

 private:
    MarkPainter marks_;
};

class PaperBuilder final : public ControlVisitor {
 public:
    std::unique_ptr<Painted> made;

    void visit(Label& label) override { made = paintedLabel(label); }
    void visit(Line& line) override { made = paintedLine(line); }
    void visit(Shape& shape) override { made = paintedShape(shape); }
    void visit(Picture& picture) override { made = paintedPicture(picture); }
    void visit(Panel& panel) override { made = paintedPanel(panel); }
    void visit(PictureBox& box) override { made = std::make_unique<DrawingOnPaper>(box); }
    void visit(Key& key) override { made = std::make_unique<KeyOnPaper>(key); }
    void visit(TextField& field) override { made = std::make_unique<FieldOnPaper>(field); }
    void visit(ScrollBar& bar) override { made = std::make_unique<ScrollBarOnPaper>(bar); }
    void visit(Chart& chart) override { made = std::make_unique<ChartOnPaper>(chart); }
    void visit(Plot& plot) override { made = std::make_unique<PlotOnPaper>(plot); }
    void visit(CheckBox&) override {}
    void visit(Option&) override {}
    void visit(ComboBox&) override {}
    void visit(ListBox&) override {}
    void visit(Tabs&) override {}
    void visit(PagePreview&) override {}
};

}  // namespace

std::unique_ptr<Painted> paintedOnPaper(Control& control) {
    PaperBuilder builder;
    control.accept(builder);
    return std::move(builder.made);
}

}  // namespace display::qt
