// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/look.h"

// What the spectrum windows share beside the rack's own type and colours. Twips.
namespace hmonitor::look {

/// The strip at the top of a window by which it is moved.
inline constexpr float kTitleStrip = 460;
inline constexpr float kWindowMargin = 150;
inline constexpr float kKeyHeight = 420;

inline constexpr display::Font kTitle{160, display::Weight::Bold};
inline constexpr display::Font kDialog{140, display::Weight::Normal};

/// The title in the strip of a window of that width.
constexpr display::Box titleBox(float windowWidth) {
    return {240, 120, windowWidth - 480, 260};
}

}  // namespace hmonitor::look
