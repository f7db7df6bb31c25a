// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/rack_place.h"

#include <algorithm>

namespace hmonitor {

void placeBesideRack(display::Form& window, const Program& program) {
    constexpr float kGap = 120;
    const display::Form& rack = *program.rack.front();
    window.left = rack.left + rack.width + kGap;
    window.top = rack.top;
}

bool hidesNothingOfTheRack(const display::Form& window, const Program& program) {
    const display::Box room = program.desktop.room(window);
    return window.left >= room.left && window.left + window.width <= room.right() &&
           window.top >= room.top && window.top + window.height <= room.bottom();
}

void placeOverRack(display::Form& window, const Program& program) {
    const display::Form& top = *program.rack.front();
    const display::Form& foot = *program.rack.back();
    const float height = foot.top + foot.height - top.top;
    window.left = top.left + (top.width - window.width) / 2;
    window.top = top.top + (height - window.height) / 2;
    // A window that is taller than the rack would reach beyond the screen, and its title with it.
    const display::Box room = program.desktop.room(window);
    if (room.width <= 0) return;
    window.left = std::max(std::min(float{window.left}, room.right() - window.width), room.left);
    window.top = std::max(std::min(float{window.top}, room.bottom() - window.height), room.top);
}

}  // namespace hmonitor
