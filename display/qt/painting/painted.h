// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>
#include <memory>

#include "display/controls/containers.h"
#include "display/controls/labels.h"
#include "display/controls/pictures.h"
#include "display/controls/shapes.h"
#include "display/qt/painting/scale.h"

namespace display::qt {

/// Paints one control on the surface of a form. prepare() reads the control's state after each
/// change; paint() only draws what was prepared.
class Painted {
 public:
    virtual ~Painted() = default;
    virtual void prepare(const Scale& scale) = 0;
    virtual void paint(QPainter& painter) = 0;
    /// The bounds of everything that paint() may touch, in pixels from the form's corner.
    virtual QRectF reach() const = 0;
};

std::unique_ptr<Painted> paintedLabel(Label& label);
std::unique_ptr<Painted> paintedLine(Line& line);
std::unique_ptr<Painted> paintedShape(Shape& shape);
std::unique_ptr<Painted> paintedPicture(Picture& picture);
std::unique_ptr<Painted> paintedPanel(Panel& panel);
std::unique_ptr<Painted> paintedDrawing(PictureBox& box);

/// Converts a point from the units of the control's container to twips from the form's corner.
QPointF onForm(const Control& control, float x, float y);

}  // namespace display::qt
