// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/help_topic.h"

#include "base/figures.h"

namespace hmonitor {

std::string helpTopicOf(const display::Form& form, const display::Control* control) {
    const char* inWell = nullptr;
    for (const figures::Figure& figure : figures::all()) {
        for (const figures::Place& place : figure.shown) {
            if (!control || form.name() != place.form) continue;
            const display::Control* const shown = form.find(place.control);
            if (shown == control) return figure.key;
            if (shown && !inWell && shown->container.get() == control) inWell = figure.key;
        }
    }
    return inWell ? inWell : form.name();
}

}  // namespace hmonitor
