// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/look.h"

// What the windows of analyses share beside the rack's own type and colours. Twips.
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

/// Right of a title that leaves it room: the one line that a window has to say of its run.
inline constexpr float kTitleWithNote = 3300;
constexpr display::Box noteBox(float windowWidth) {
    return {kTitleWithNote, 150, windowWidth - kTitleWithNote - 240, 200};
}
inline void likeNote(display::Label& note) {
    note.says = {"Corrida rechazada por la unidad", "Run that the unit refused"};
    note.font = kCaption;
    note.colour = display::Colour{0x4ac2ff};
    note.align = display::Align::Right;
    note.readout = true;
}

}  // namespace hmonitor::look
