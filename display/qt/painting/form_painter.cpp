// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/form_painter.h"

#include <memory>

#include "display/qt/painting/painted_on_paper.h"
#include "display/qt/painting/surfaces.h"

namespace display::qt {

namespace {

/// Whether the control and its containers are visible. The form itself may be hidden while it is
/// printed.
bool standsThere(const Control& control) {
    for (const Control* at = &control; at; at = at->container.get()) {
        if (!at->visible) return false;
    }
    return true;
}

bool standsOn(const Control& control, const Panel& sheet) {
    for (const Control* at = &control; at; at = at->container.get()) {
        if (at == &sheet) return true;
    }
    return false;
}

/// Clips to all its containers.
void paintCut(QPainter& painter, Control& control, const Scale& scale) {
    const std::unique_ptr<Painted> painted = paintedOnPaper(control);
    if (!painted) return;
    painted->prepare(scale);
    const QRectF whole = painted->reach();
    QRectF seen = whole;
    for (const Panel* in = control.container; in; in = in->container)
        seen &= scale.snapped(in->boxOnForm());
    if (seen.isEmpty()) return;
    painter.save();
    if (seen != whole) painter.setClipRect(seen, Qt::IntersectClip);
    painted->paint(painter);
    painter.restore();
}

Scale paperScale(qreal devicePixelsPerTwip) {
    return {1, devicePixelsPerTwip};
}

}  // namespace

void paintForm(QPainter& painter, const Form& form, qreal devicePixelsPerTwip) {
    const Scale scale = paperScale(devicePixelsPerTwip);
    painter.save();
    paintFormGround(painter, scale.snapped(Box{0, 0, form.width, form.height}));
    for (Control* control : form.controls()) {
        if (standsThere(*control)) paintCut(painter, *control, scale);
    }
    painter.restore();
}

void paintSheet(QPainter& painter, const Panel& sheet, qreal devicePixelsPerTwip) {
    const Scale scale = paperScale(devicePixelsPerTwip);
    painter.save();
    painter.translate(-scale.snapped(sheet.boxOnForm()).topLeft());
    for (Control* control : sheet.form().controls()) {
        if (standsOn(*control, sheet) && standsThere(*control)) paintCut(painter, *control, scale);
    }
    painter.restore();
}

void paintControl(QPainter& painter, Control& control, qreal devicePixelsPerTwip) {
    const Scale scale = paperScale(devicePixelsPerTwip);
    const std::unique_ptr<Painted> painted = paintedOnPaper(control);
    if (!painted) return;
    painted->prepare(scale);
    painter.save();
    painter.translate(-scale.snapped(control.boxOnForm()).topLeft());
    painted->paint(painter);
    painter.restore();
}

}  // namespace display::qt
