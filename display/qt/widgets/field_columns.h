// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <unordered_map>
#include <vector>

#include "display/form.h"
#include "display/qt/painting/scale.h"

namespace display::qt {

/// Text fields that stand below each other at even steps stay even on the screen: each edge
/// rounded on its own, one would stand closer to the next than its neighbours, by four pixels where
/// only each fourth is a whole device pixel. So the step is rounded, about the column's middle, and
/// the label in front of a field keeps to it.
class FieldColumns {
 public:
    /// Looks for the columns of three or more that the form's layout has.
    void find(const Form& form, const Scale& scale);

    /// Where that field of a column stands, or null.
    const QRect* boxOf(const Control& field) const;
    /// How far down a label goes to keep to its field, in logical pixels; 0 for all others.
    qreal shiftOf(const Control& label) const;

 private:
    using Column = std::vector<const Control*>;
    void align(const Column& column, const Scale& scale);
    void alignLabels(const Form& form, const Scale& scale);

    std::unordered_map<const Control*, QRect> boxes_;
    std::unordered_map<const Control*, qreal> shifts_;
};

}  // namespace display::qt
