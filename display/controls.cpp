// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls.h"

#include <algorithm>

#include "display/chart.h"
#include "display/form.h"
#include "display/page.h"

namespace display {

template <class Kind>
void KindOf<Kind>::accept(ControlVisitor& visitor) {
    visitor.visit(static_cast<Kind&>(*this));
}

template <class Kind>
void KindOf<Kind>::resetKind() {
    static_cast<Kind&>(*this).forEachProperty(
        [](std::string_view, auto& property) { resetProperty(property); });
}

template class KindOf<Label>;
template class KindOf<Line>;
template class KindOf<Shape>;
template class KindOf<Picture>;
template class KindOf<Panel>;
template class KindOf<PictureBox>;
template class KindOf<Key>;
template class KindOf<TextField>;
template class KindOf<CheckBox>;
template class KindOf<Option>;
template class KindOf<ComboBox>;
template class KindOf<ListBox>;
template class KindOf<ScrollBar>;
template class KindOf<Tabs>;
template class KindOf<Chart>;
template class KindOf<PagePreview>;

Box Line::boxInContainer() const {
    const auto [first, last] = std::minmax(x1.get(), x2.get());
    const auto [upper, lower] = std::minmax(y1.get(), y2.get());
    return {first, upper, last - first, lower - upper};
}

bool Picture::interactive() const {
    return onPress || onRelease || onClick;
}

bool PictureBox::interactive() const {
    return static_cast<bool>(onDoubleClick);
}

void TextField::edit(std::string_view wanted) {
    if (text == wanted) return;
    allSelected_ = false;
    text.text_ = wanted;
    if (onChange && !form().layingOut()) onChange();
}

void TextField::Value::reset() {
    field_.allSelected_ = false;
    text_.reset();
}

void TextField::selectAll() {
    allSelected_ = true;
    selections = selections + 1;
}

void CheckBox::take(bool on) {
    if (checked == on) return;
    checked.value_ = on;
    if (onClick && !form().layingOut()) onClick();
}

void Option::choose() {
    if (chosen) return;
    for (Control* control : form().controls()) {
        auto* other = dynamic_cast<Option*>(control);
        if (other && other != this && other->container.get() == container.get()) {
            other->chosen = false;
        }
    }
    chosen = true;
    if (onClick && !form().layingOut()) onClick();
}

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
    const bool again = firesAgain && row >= 0 && row == list.selected();
    if ((changed || again) && onClick && !form().layingOut()) onClick();
}

void ListBox::select(int row) {
    if (list.setSelected(row) && onClick && !form().layingOut()) onClick();
}

int ScrollBar::clamped(int wanted) const {
    return std::clamp(wanted, minimum.get(), std::max(minimum.get(), maximum.get()));
}

void ScrollBar::take(int wanted) {
    const int taken = clamped(wanted);
    // No hand holds on to a thumb that it may not move any more.
    if (!usable()) dragging = false;
    if (!dragging) thumb = taken;
    if (value == taken) return;
    value.value_ = taken;
    if (onChange && !form().layingOut()) onChange();
}

void ScrollBar::range(int lowest, int highest, int page) {
    minimum = lowest;
    maximum = highest;
    pageStep = page;
    // A range that leaves the value outside moves it to the nearer end.
    value = value.value_.get();
}

void ScrollBar::drag(int position) {
    dragging = true;
    if (thumb == clamped(position)) return;
    thumb = clamped(position);
    if (onScroll) onScroll();
}

void ScrollBar::dropThumb() {
    if (!dragging) return;
    dragging = false;
    value = thumb.get();
}

void ScrollBar::loseThumb() {
    dragging = false;
    thumb = value;
}

void Tabs::add(std::string_view caption, Panel& page) {
    page.visible = pages_.empty();
    pages_.push_back({std::string(caption), &page});
    touch();
}

void Tabs::choose(int tab) {
    if (tab < 0 || tab >= static_cast<int>(pages_.size()) || tab == current) return;
    pages_[static_cast<std::size_t>(current.get())].panel->visible = false;
    current = tab;
    pages_[static_cast<std::size_t>(tab)].panel->visible = true;
    if (onClick && !form().layingOut()) onClick();
}

}  // namespace display
