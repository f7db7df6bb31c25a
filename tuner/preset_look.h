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

/// Their tool tips.
inline constexpr display::Words kStoredTip{"Elige esta memoria y la sintoniza",
                                           "Selects this memory and tunes it"};
inline constexpr display::Words kEmptyTip{
    "Vacía: la elige y vacía los campos de frecuencia y nombre; no sintoniza",
    "Empty: selects it and clears the fields of frequency and name; tunes nothing"};

/// A lit segment of the memory's number.
inline constexpr display::Colour kDigit{0x2f2fff};

}  // namespace hmonitor::preset_look

namespace hmonitor {

/// The accessible name of the key of a memory, 1 to 16.
display::Words presetName(int memory);
display::Words emptyPresetName(int memory);

/// The accessible text of the selected memory; 0 for none.
std::string selectedText(display::Language language, int memory);

}  // namespace hmonitor
