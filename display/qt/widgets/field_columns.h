// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <unordered_map>
#include <vector>

#include "display/form.h"
#include "display/qt/painting/scale.h"

namespace display::qt {

/// Keeps text fields evenly spaced that stand below each other at equal steps. With each edge
/// rounded on its own, gaps would differ by up to four pixels at device pixel ratios where only
/// every fourth logical pixel is a whole device pixel. So the step is rounded, about the column's
/// middle, and the label in front of a field moves with it.
class FieldColumns {
 public:
    /// Finds the columns of three or more fields in the form's layout.
    void find(const Form& form, const Scale& scale);

    /// The box of a field in a column, or null.
    const QRect* boxOf(const Control& field) const;
    /// By how much a label is moved down to stay beside its field, in logical pixels; 0 for all
    /// others.
    qreal shiftOf(const Control& label) const;

 private:
    using Column = std::vector<const Control*>;
    void align(const Column& column, const Scale& scale);
    void alignLabels(const Form& form, const Scale& scale);

    std::unordered_map<const Control*, QRect> boxes_;
    std::unordered_map<const Control*, qreal> shifts_;
};

}  // namespace display::qt
