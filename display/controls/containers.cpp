// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/containers.h"

#include "display/form.h"

namespace display {

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
