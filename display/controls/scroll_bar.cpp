// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/scroll_bar.h"

#include <algorithm>

#include "display/form.h"

namespace display {

int ScrollBar::clamped(int wanted) const {
    return std::clamp(wanted, minimum.get(), std::max(minimum.get(), maximum.get()));
}

void ScrollBar::take(int wanted) {
    const int taken = clamped(wanted);
    // A bar that was disabled during a drag ends the drag.
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
    // A value outside the new range moves to the nearer end.
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

}  // namespace display
