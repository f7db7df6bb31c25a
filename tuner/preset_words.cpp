// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/preset_words.h"

#include <array>
#include <string>

#include "core/memory_block.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

using Names = std::array<std::string, MemoryBlock::kMemories + 1>;

Names numbered(std::string_view word, std::string_view behind) {
    Names names;
    for (int memory = 0; memory <= MemoryBlock::kMemories; ++memory) {
        names[static_cast<std::size_t>(memory)] =
            std::string(word) + wholeText(memory).str() + std::string(behind);
    }
    return names;
}

const char* nameOf(const Names& names, int memory) {
    return names[static_cast<std::size_t>(memory)].c_str();
}

}  // namespace

display::Words presetName(int memory) {
    static const Names spanish = numbered("Memoria ", "");
    static const Names english = numbered("Memory ", "");
    return {nameOf(spanish, memory), nameOf(english, memory)};
}

display::Words emptyPresetName(int memory) {
    static const Names spanish = numbered("Memoria ", ", vacía");
    static const Names english = numbered("Memory ", ", empty");
    return {nameOf(spanish, memory), nameOf(english, memory)};
}

display::Words presetFrequencyName(int memory) {
    static const Names spanish = numbered("Memoria ", ", MHz");
    static const Names english = numbered("Memory ", ", MHz");
    return {nameOf(spanish, memory), nameOf(english, memory)};
}

namespace {

std::string holds(const StoredPreset& preset) {
    return (preset.name.empty() ? "" : preset.name + ", ") + preset.megahertz + " MHz";
}

}  // namespace

PresetTip presetTip(int memory, const StoredPreset& preset) {
    if (preset.megahertz.empty()) {
        const display::Words name = emptyPresetName(memory);
        return {
            name.spanish +
                std::string(".\nLa elige y vacía los campos de frecuencia y nombre; no sintoniza"),
            name.english +
                std::string(".\nSelects it and clears the fields of frequency and name; tunes "
                            "nothing")};
    }
    const display::Words name = presetName(memory);
    const std::string held = ": " + holds(preset);
    return {name.spanish + held + ".\nLa elige y la sintoniza",
            name.english + held + ".\nSelects it and tunes it"};
}

std::string selectedText(display::Language language, int memory) {
    const bool spanish = language == display::Language::Spanish;
    if (memory == 0) return spanish ? "Sin memoria" : "No memory";
    return std::string(spanish ? "Memoria " : "Memory ") + wholeText(memory).str();
}

}  // namespace hmonitor
