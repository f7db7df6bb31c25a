// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/panel_sign.h"

#include <string>

#include "core/numbers.h"

namespace hmonitor {

PanelSign::PanelSign(display::Form& form, int wells) : words(form, "Sign") {
    words.reading = [this] { return std::string(words.caption.get()); };
    for (int well = 0; well < wells; ++well) {
        veils.emplace_back(form, SmallText("Veil").append(wholeText(well)).str());
    }
}

void PanelSign::show(std::string_view text, Figures figures) {
    words.caption = text;
    words.visible = !text.empty();
    for (display::Panel& veil : veils) veil.visible = figures == Figures::Stale;
}

}  // namespace hmonitor
