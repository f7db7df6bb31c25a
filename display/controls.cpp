// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls.h"

#include <algorithm>

#include "display/chart.h"
#include "display/form.h"

namespace display {

void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Line::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Shape::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Picture::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Panel::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void PictureBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Key::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void TextField::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void CheckBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Option::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void ComboBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void ListBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void ScrollBar::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}
void Tabs::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Label::resetKind() {
    caption = "";
    colour = kWhite;
    font = Font{};
    align = Align::Left;
    surface = Surface::None;
    wraps = false;
}

void Line::resetKind() {
    from(0, 0);
    to(0, 0);
    colour = kWhite;
    thickness = 1.f;
    stroke = Stroke::Plain;
}

void Shape::resetKind() {
    outline = Outline::Rectangle;
    colour = kBlack;
    fadesFrom = kBlack;
}

bool Picture::interactive() const {
    return onPress || onRelease || onClick;
}

void Picture::resetKind() {
    picture = "";
    caption = "";
    border = Border::None;
    held = false;
}

bool Panel::interactive() const {
    return false;
}

void Panel::resetKind() {
    caption = "";
    surface = Surface::None;
    unit = 1.f;
}

bool PictureBox::interactive() const {
    return static_cast<bool>(onDoubleClick);
}

void PictureBox::resetKind() {
    drawing.reset();
}

void Key::resetKind() {
    caption = "";
    colour = kWhite;
    lit = false;
    isDefault = false;
    isCancel = false;
    shortcut = {};
}

void TextField::edit(std::string_view wanted) {
    if (text == wanted) return;
    allSelected_ = false;
    text.text_ = wanted;
    if (onChange && !form().layingOut()) onChange();
}

void TextField::selectAll() {
    allSelected_ = true;
    selections = selections + 1;
}
void TextField::resetKind() {
    text.text_ = "";
    allSelected_ = false;
    locked = false;
    maxLength = 0;
    align = Align::Left;
    colour = kWhite;
    font = Font{};
}

void CheckBox::take(bool on) {
    if (checked == on) return;
    checked.value_ = on;
    if (onClick && !form().layingOut()) onClick();
}

void CheckBox::resetKind() {
    checked.value_ = false;
    caption = "";
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

void Option::resetKind() {
    chosen = false;
    caption = "";
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

void ComboBox::resetKind() {
    firesAgain = false;
    list.clear();
}

void ListBox::select(int row) {
    if (list.setSelected(row) && onClick && !form().layingOut()) onClick();
}

void ListBox::resetKind() {
    list.clear();
    fixedPitch = false;
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

void ScrollBar::resetKind() {
    minimum = 0;
    maximum = 100;
    pageStep = 10;
    dragging = false;
    thumb = 0;
    value.value_ = 0;
    vertical = false;
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

void Tabs::resetKind() {
    current = 0;
    pages_.clear();
}

}  // namespace display
