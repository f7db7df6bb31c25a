// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <string_view>

#include "display/controls/containers.h"
#include "display/controls/pictures.h"

namespace hmonitor {

/// A sign in the head of a rack panel about the figures below it: nothing while they are live,
/// "DEMO" where they are simulated, "NO DATA" with the seconds while the unit sends nothing new;
/// veils then dim the wells of measured figures.
class PanelSign {
 public:
    /// With this number of veils. Must be declared after all other controls, since it lies above
    /// them.
    PanelSign(display::Form& form, int wells);

    enum class Figures { Live, Stale };
    void show(std::string_view text, Figures figures);

    display::Picture words;
    std::deque<display::Panel> veils;
};

}  // namespace hmonitor
