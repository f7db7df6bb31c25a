// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRect>
#include <functional>
#include <memory>

#include "display/form.h"
#include "display/qt/windows/form_view.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

/// A form of the program as the screen shows it, to be read back pixel by pixel. The program itself
/// runs on the headless desktop. The pixels of a control are found by hiding it, so no test needs
/// to know how it is drawn. Positions are device pixels of the form.
class FormPicture {
 public:
    /// Shows the form, if it is hidden.
    explicit FormPicture(Form& form);

    /// The form as it is now.
    QImage taken();

    /// The pixels that `change` changes; `undo` reverses it.
    QImage changedBy(const std::function<void()>& change, const std::function<void()>& undo);
    /// The visible pixels of a control, and the box around them.
    QImage pixelsOf(Control& control);
    QRect inkOf(Control& control);
    /// The middle of the visible pixels. For a figure of a scale, this is the position of its
    /// value.
    QPointF middleOf(Control& control);

    /// A control's own box, and a point in the units of its container.
    QRect boxOf(const Control& control) const;
    QPointF pointIn(const Panel& panel, float x, float y) const;

 private:
    std::unique_ptr<QtDesktop> desktop_;
    std::unique_ptr<FormView> view_;
    Form& form_;
};

/// The box around the set pixels; empty if there are none.
QRect inkBox(const QImage& pixels);
/// The same for the pixels of about that colour within a part of a picture.
QRect inkBox(const QImage& picture, const QRect& within, const QColor& colour);
bool isAbout(const QColor& one, const QColor& other);

/// The value at a position of a scale, from the positions of two of its figures.
double onScale(double place, double firstPlace, double firstValue, double lastPlace,
               double lastValue);

}  // namespace display::qt
