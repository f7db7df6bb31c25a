// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/field_columns.h"

#include <algorithm>
#include <cmath>

#include "display/controls/text_field.h"

namespace display::qt {

namespace {

constexpr std::size_t kFewest = 3;
/// Steps that differ by no more than this many twips count as equal.
constexpr float kSame = 0.5f;

bool goesOn(const std::vector<const Control*>& column, const Control& next) {
    const Control& last = *column.back();
    if (last.container.get() != next.container.get() || last.left != next.left ||
        last.width != next.width || last.height != next.height || next.top <= last.top) {
        return false;
    }
    if (column.size() == 1) return true;
    const float step = last.top - column[column.size() - 2]->top;
    return std::fabs(next.top - last.top - step) < kSame;
}

/// Whether the label stands in front of the field, in its row.
bool standsBefore(const Control& label, const Control& field) {
    const Box text = label.boxOnForm(), box = field.boxOnForm();
    const float gap = box.left - text.right();
    return label.container.get() == field.container.get() && gap >= 0 && gap < text.height &&
           text.top >= box.top && text.bottom() <= box.bottom();
}

}  // namespace

void FieldColumns::find(const Form& form, const Scale& scale) {
    boxes_.clear();
    shifts_.clear();
    Column column;
    const auto close = [&] {
        if (column.size() >= kFewest) align(column, scale);
        column.clear();
    };
    for (const Control* control : form.controls()) {
        if (!dynamic_cast<const TextField*>(control)) continue;
        if (!column.empty() && !goesOn(column, *control)) close();
        column.push_back(control);
    }
    close();
    if (!boxes_.empty()) alignLabels(form, scale);
}

void FieldColumns::align(const Column& column, const Scale& scale) {
    const Box first = column.front()->boxOnForm(), last = column.back()->boxOnForm();
    const auto steps = static_cast<int>(column.size()) - 1;
    const qreal exact = scale.px(last.top - first.top) / steps;
    const int step = scale.whole(exact);
    const qreal away = (exact - step) * steps / 2;
    // In a long column the rounded steps would add up to a visible distance from the controls
    // around it.
    if (std::abs(away) > scale.grid()) return;
    const int top = scale.whole(scale.px(first.top) + away);
    const int height = std::min(scale.whole(scale.px(first.height)), step);
    const QRect across = scale.whole(first);
    for (int i = 0; i <= steps; ++i) {
        boxes_[column[static_cast<std::size_t>(i)]] =
            QRect(across.left(), top + i * step, across.width(), height);
    }
}

void FieldColumns::alignLabels(const Form& form, const Scale& scale) {
    for (const Control* control : form.controls()) {
        if (!dynamic_cast<const Label*>(control)) continue;
        for (const auto& [field, box] : boxes_) {
            if (!standsBefore(*control, *field)) continue;
            const Box text = control->boxOnForm();
            // Aligned by their middles, whatever the field's height was rounded to.
            const qreal before = scale.px(text.top + text.height / 2 - field->boxOnForm().top -
                                          field->boxOnForm().height / 2);
            const qreal top =
                scale.snapped(box.top() + box.height() / 2.0 + before - scale.px(text.height) / 2);
            shifts_[control] = top - scale.snapped(scale.px(text.top));
        }
    }
}

const QRect* FieldColumns::boxOf(const Control& field) const {
    const auto found = boxes_.find(&field);
    return found == boxes_.end() ? nullptr : &found->second;
}

qreal FieldColumns::shiftOf(const Control& label) const {
    const auto found = shifts_.find(&label);
    return found == shifts_.end() ? 0 : found->second;
}

}  // namespace display::qt
