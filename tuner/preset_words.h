// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/control.h"

// What the memory editor says of the memories, 1 to 16.
namespace hmonitor {

/// What a memory holds, as it is shown; both empty for an empty memory.
struct StoredPreset {
    std::string name;
    std::string megahertz;
};

/// The tool tip of the key of a memory. Keys keep plain pointers, so it lives as long as they show
/// it.
struct PresetTip {
    std::string spanish, english;
    bool operator==(const PresetTip&) const = default;
    display::Words words() const { return {spanish.c_str(), english.c_str()}; }
};
PresetTip presetTip(int memory, const StoredPreset& preset);

/// The accessible name of a memory, and of its frequency.
display::Words presetName(int memory);
display::Words emptyPresetName(int memory);
display::Words presetFrequencyName(int memory);

/// The accessible text of the selected memory; 0 for none.
std::string selectedText(display::Language language, int memory);

}  // namespace hmonitor
