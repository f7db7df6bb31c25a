// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/drawing_picture.h"

#include <algorithm>
#include <cmath>

#include "display/chart.h"
#include "display/controls/containers.h"
#include "display/controls/labels.h"
#include "display/controls/plot.h"
#include "display/controls/shapes.h"
#include "display/qt/painting/chart_painter.h"
#include "display/qt/painting/form_painter.h"

namespace display::qt {

namespace {

bool visibleThere(const Control& control) {
    for (const Control* at = &control; at; at = at->container.get()) {
        if (!at->visible) return false;
    }
    return true;
}

/// Labels and lines, of which scales and legends consist, and plots, which stand below one another
/// over one axis.
bool isWordOrLine(const Control& control) {
    return dynamic_cast<const Label*>(&control) || dynamic_cast<const Line*>(&control) ||
           dynamic_cast<const Shape*>(&control) || dynamic_cast<const Plot*>(&control);
}

QColor groundOf(const Control& drawing) {
    const bool dark = dynamic_cast<const Chart*>(&drawing) || dynamic_cast<const Plot*>(&drawing);
    return dark ? ChartInk::of(drawing).ground : QColor(Qt::white);
}

/// The box that the control covers; that of a line lies around its ends.
Box boxOf(const Control& control) {
    const auto* line = dynamic_cast<const Line*>(&control);
    if (!line) return control.boxOnForm();
    const Panel* in = line->container;
    const float unit = in ? in->unit.get() : 1;
    const Box origin = in ? in->boxOnForm() : Box{};
    return {origin.left + unit * std::min(line->x1.get(), line->x2.get()),
            origin.top + unit * std::min(line->y1.get(), line->y2.get()),
            unit * std::abs(line->x1 - line->x2), unit * std::abs(line->y1 - line->y2)};
}

}  // namespace

DrawingPicture::DrawingPicture(Control& drawing, qreal pixelsPerTwip)
    : drawing_(drawing), pixelsPerTwip_(pixelsPerTwip) {
    named_ = drawing.pictureBox.width > 0 && drawing.pictureBox.height > 0;
    place_ = named_ ? drawing.pictureBox : drawing.boxOnForm();
    const auto* chart = dynamic_cast<const Chart*>(&drawing);
    if (named_ && chart) measureChart(*chart);
}

/// A chart that is scrolled inside a panel: unscrolled, and as wide as its plot.
void DrawingPicture::measureChart(const Chart& chart) {
    const Panel* view = chart.container;
    if (!view || chart.width <= view->width) return;
    const Chart::Insets insets = chart.insets;
    shift_ = -insets.left - chart.left;
    wider_ = chart.width - insets.left - insets.right - view->width;
}

bool DrawingPicture::scrollsWithIt(const Control& control) const {
    return shift_ != 0 && control.container.get() == drawing_.container.get();
}

bool DrawingPicture::belongs(const Control& control) const {
    if (!named_ || !isWordOrLine(control) || !visibleThere(control)) return false;
    const Box box = boxOf(control);
    const bool scrolls = scrollsWithIt(control);
    const float left = box.left + (scrolls ? shift_ : 0);
    const float right = place_.right() + (scrolls ? wider_ : 0);
    return left >= place_.left && left + box.width <= right && box.top >= place_.top &&
           box.bottom() <= place_.bottom();
}

QSizeF DrawingPicture::size() const {
    return QSizeF(place_.width + wider_, place_.height) * pixelsPerTwip_;
}

void DrawingPicture::paint(QPainter& painter, qreal devicePixelRatio) const {
    const qreal devicePixelsPerTwip = devicePixelRatio * pixelsPerTwip_;
    painter.save();
    painter.scale(devicePixelsPerTwip, devicePixelsPerTwip);
    if (named_)
        painter.fillRect(QRectF(0, 0, place_.width + wider_, place_.height), groundOf(drawing_));
    // The drawing comes first, since its background reaches below the scale beside it.
    paintOne(painter, drawing_, devicePixelsPerTwip);
    for (Control* control : drawing_.form().controls()) {
        if (control != &drawing_ && belongs(*control))
            paintOne(painter, *control, devicePixelsPerTwip);
    }
    painter.restore();
}

void DrawingPicture::paintOne(QPainter& painter, Control& control,
                              qreal devicePixelsPerTwip) const {
    const Box box = control.boxOnForm();
    const bool moved = &control == &drawing_ || scrollsWithIt(control);
    painter.save();
    painter.translate(box.left - place_.left + (moved ? shift_ : 0), box.top - place_.top);
    paintControl(painter, control, devicePixelsPerTwip);
    painter.restore();
}

}  // namespace display::qt
