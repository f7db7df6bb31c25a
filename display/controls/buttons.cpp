// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/buttons.h"

#include "display/form.h"

namespace display {

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

}  // namespace display
