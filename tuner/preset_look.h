// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/form.h"
#include "program/look.h"

// How the memory editor shows a preset.
namespace hmonitor::preset_look {

/// The widths of the dialog in twips, without and with its options.
inline constexpr float kNarrow = 4445;
inline constexpr float kWide = 7700;

/// The colours of keys of filled and of empty memories.
inline constexpr display::Colour kStored = display::kWhite;
inline constexpr display::Colour kEmpty{0xeab274};

/// A lit segment of the memory's number.
inline constexpr display::Colour kDigit{0x2f2fff};

}  // namespace hmonitor::preset_look
