// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/lists.h"

#include "display/form.h"

namespace display {

void ListModel::clear() {
    if (rows_.empty()) return;
    rows_.clear();
    selected_ = -1;
    owner_.touch();
}

void ListModel::add(std::string_view row) {
    rows_.emplace_back(row);
    owner_.touch();
}

std::string_view ListModel::text() const {
    return selected_ < 0 ? std::string_view{} : rows_[static_cast<std::size_t>(selected_)];
}

bool ListModel::setSelected(int row) {
    if (row < -1 || row >= static_cast<int>(rows_.size()) || row == selected_) return false;
    selected_ = row;
    owner_.touch();
    return true;
}

void ComboBox::select(int row) {
    const bool changed = list.setSelected(row);
    const bool again = firesAgain && row == list.selected();
    if (row >= 0 && (changed || again) && onClick && !form().layingOut()) onClick();
}

void ListBox::select(int row) {
    if (list.setSelected(row) && row >= 0 && onClick && !form().layingOut()) onClick();
}

}  // namespace display
