// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/preset_look.h"

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

std::string selectedText(display::Language language, int memory) {
    const bool spanish = language == display::Language::Spanish;
    if (memory == 0) return spanish ? "Sin memoria" : "No memory";
    return std::string(spanish ? "Memoria " : "Memory ") + wholeText(memory).str();
}

}  // namespace hmonitor
