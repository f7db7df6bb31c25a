// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/control.h"

#include <utility>

#include "display/form.h"

namespace display {

Control::Control(Form& form, std::string name)
    : Revised(form.ticks_), form_(form), name_(std::move(name)) {
    form.controls_.push_back(this);
}

void Control::reset() {
    forEachCommonProperty([](std::string_view, auto& property) { resetProperty(property); });
    pictureBox = {};
    timesPlaced = 0;
    resetKind();
}

Box Control::boxOnForm() const {
    Box box = boxInContainer();
    for (const Panel* in = container; in; in = in->container) {
        const float unit = in->unit;
        box.left = in->left + box.left * unit;
        box.top = in->top + box.top * unit;
        box.width *= unit;
        box.height *= unit;
    }
    return box;
}

bool Control::shown() const {
    for (const Control* control = this; control; control = control->container.get()) {
        if (!control->visible) return false;
    }
    return form_.visible;
}

bool Control::usable() const {
    for (const Control* control = this; control; control = control->container.get()) {
        if (!control->enabled) return false;
    }
    return form_.enabled;
}

void Control::takeFocus() {
    form_.desktop().giveFocus(*this);
}

std::string_view Control::accessibleName() const {
    return wordsIn(form_.language, says);
}

}  // namespace display
