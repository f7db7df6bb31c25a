// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/surfaces.h"

#include <cstdint>

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include "display/controls/containers.h"
#include "display/qt/painting/palette.h"

namespace display::qt {

namespace {

QLinearGradient downward(const QRectF& box, QColor top, QColor bottom) {
    QLinearGradient gradient(box.topLeft(), box.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

void paintScrew(QPainter& painter, QPointF centre, qreal radius, qreal angle) {
    QRadialGradient head(centre - QPointF(radius * 0.3, radius * 0.4), radius * 1.6);
    head.setColorAt(0, QColor(0x3b, 0x42, 0x4c));
    head.setColorAt(1, QColor(0x12, 0x14, 0x18));
    painter.setPen(QPen(QColor(0x08, 0x0a, 0x0c), radius * 0.25));
    painter.setBrush(head);
    painter.drawEllipse(centre, radius, radius);
    painter.save();
    painter.translate(centre);
    painter.rotate(angle);
    painter.setPen(QPen(QColor(0x08, 0x09, 0x0b), radius * 0.32));
    painter.drawLine(QPointF(-radius * 0.6, 0), QPointF(radius * 0.6, 0));
    painter.restore();
}

/// Fine horizontal strokes of brushed metal. The pattern is fixed, so that a panel looks the same
/// at every start.
void paintBrushing(QPainter& painter, const QRectF& box, qreal unit) {
    std::uint32_t noise = 0x9e3779b9u;
    painter.setPen(Qt::NoPen);
    for (qreal y = box.top(); y < box.bottom(); y += unit) {
        noise = noise * 1664525u + 1013904223u;
        const int alpha = static_cast<int>(noise >> 29);
        const bool light = noise >> 28 & 1;
        const int shade = light ? 255 : 0;
        painter.fillRect(QRectF(box.left(), y, box.width(), unit),
                         QColor(shade, shade, shade, alpha / 2 + 1));
    }
}

void paintFaceplate(QPainter& painter, const QRectF& box, qreal unit) {
    painter.fillRect(box, downward(box, QColor(kFaceplateTop), QColor(kFaceplateBottom)));
    paintBrushing(painter, box, unit);
    painter.fillRect(QRectF(box.left(), box.top(), box.width(), unit), QColor(kFaceplateEdge));
    painter.fillRect(QRectF(box.left(), box.bottom() - unit, box.width(), unit),
                     QColor(kFaceplateShade));
    // Only large plates have screws; the small ones below the strip of a dialog have none.
    if (box.height() < 60 * unit || box.width() < 200 * unit) return;
    painter.setRenderHint(QPainter::Antialiasing, true);
    const qreal inset = 14 * unit;
    const qreal radius = 4.6 * unit;
    const qreal left = box.left() + inset, right = box.right() - inset;
    const qreal top = box.top() + inset, bottom = box.bottom() - inset;
    paintScrew(painter, {left, top}, radius, 35);
    paintScrew(painter, {right, top}, radius, -20);
    paintScrew(painter, {left, bottom}, radius, -50);
    paintScrew(painter, {right, bottom}, radius, 10);
}

void paintWell(QPainter& painter, const QRectF& box, qreal unit) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    const qreal radius = 4 * unit;
    const qreal half = unit / 2;
    // The rim is light at the bottom and dark at the top.
    QPainterPath rim;
    rim.addRoundedRect(box.adjusted(half, half, -half, -half), radius, radius);
    painter.setPen(QPen(QBrush(downward(box, QColor(0x0a, 0x0c, 0x0f), QColor(kWellRim))), unit));
    painter.setBrush(downward(box, QColor(kWellTop), QColor(kWellBottom)));
    painter.drawPath(rim);
    painter.setPen(QPen(QColor(0x23, 0x2a, 0x32), unit * 0.8));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(2 * unit, 2 * unit, -2 * unit, -2 * unit), radius * 0.7,
                            radius * 0.7);
    QLinearGradient shade(box.topLeft(), box.topLeft() + QPointF(0, 8 * unit));
    shade.setColorAt(0, QColor(0, 0, 0, 150));
    shade.setColorAt(1, QColor(0, 0, 0, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawRoundedRect(box.adjusted(unit, unit, -unit, -unit), radius, radius);
}

void paintPlate(QPainter& painter, const QRectF& box, qreal unit) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(0x08, 0x0a, 0x0c), unit));
    painter.setBrush(downward(box, QColor(kPlateTop), QColor(kPlateBottom)));
    const qreal half = unit / 2;
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), 3 * unit, 3 * unit);
}

void paintGlow(QPainter& painter, const QRectF& box) {
    QLinearGradient light(box.topLeft(), box.topRight());
    light.setColorAt(0, QColor(0xff, 0xff, 0xff, 0));
    light.setColorAt(1, QColor(0xff, 0xff, 0xff, 190));
    painter.fillRect(box, light);
}

void paintVeil(QPainter& painter, const QRectF& box, qreal unit) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x10, 0x13, 0x17, 170));
    painter.drawRoundedRect(box, 4 * unit, 4 * unit);
}

}  // namespace

void paintSurface(QPainter& painter, Surface surface, const QRectF& box, qreal unit) {
    if (surface == Surface::None || box.isEmpty()) return;
    painter.save();
    switch (surface) {
        case Surface::None:
            break;
        case Surface::Faceplate:
            paintFaceplate(painter, box, unit);
            break;
        case Surface::Well:
            paintWell(painter, box, unit);
            break;
        case Surface::Plate:
            paintPlate(painter, box, unit);
            break;
        case Surface::Sheet:
            painter.fillRect(box, Qt::white);
            break;
        case Surface::Glow:
            paintGlow(painter, box);
            break;
        case Surface::Veil:
            paintVeil(painter, box, unit);
            break;
    }
    painter.restore();
}

bool standsOnLight(const Control& control) {
    for (const Panel* in = control.container; in; in = in->container) {
        if (in->surface != Surface::None)
            return in->surface == Surface::Plate || in->surface == Surface::Sheet;
    }
    return false;
}

void paintFormGround(QPainter& painter, const QRectF& box) {
    painter.fillRect(box, QColor(0x20, 0x24, 0x2b));
}

}  // namespace display::qt
