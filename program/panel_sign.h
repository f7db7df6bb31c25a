// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <string_view>

#include "display/controls/containers.h"
#include "display/controls/pictures.h"

namespace hmonitor {

/// What the head of a rack panel says about the figures below it: nothing while they live, "DEMO"
/// where they are made up, "NO DATA" with the seconds when the unit says nothing new. Then veils
/// dim the wells that are measured.
class PanelSign {
 public:
    /// With a veil for each of that many wells. Declared behind all other controls: it lies above.
    PanelSign(display::Form& form, int wells);

    enum class Figures { Live, Stale };
    void show(std::string_view text, Figures figures);

    display::Picture words;
    std::deque<display::Panel> veils;
};

}  // namespace hmonitor
