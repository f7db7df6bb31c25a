// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/rack_bench.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/form_b_tuner.h"

namespace hmonitor::test {

/// The measuring rack and its two tuner dialogs.
struct EditorBench : RackBench {
    explicit EditorBench(int languageId = kEnglish) : RackBench(languageId) {}

    Form_bSetMemories& editor = forms.formSetMemories;
    Form_bTuner& keypad = forms.formTuner;

    void openEditor() { click(formB.Image3); }
    void openKeypad() { click(formB.Image4); }

    /// Starts the rack on preset 1, then opens the editor.
    void startInEditor() {
        start();
        openEditor();
    }

    void select(int memory) { click(editor.presets[memory]); }
    /// Types the frequency into the selected memory and saves it.
    void save(std::string_view frequency, std::string_view name) {
        edit(editor.Text1, frequency);
        edit(editor.Text2, name);
        click(editor.SSCommand20);
    }
    /// Memory 1 holds 98.1 MHz.
    void tuneBackToMemory1() { select(1); }
    /// Tunes by hand, so that no memory is selected.
    void tuneByHand(int frequency) { set(formB.HScroll1, frequency - 875); }

    /// The 16 bytes of a memory.
    std::string record(int memory) const {
        return read("halden.dat").substr(16 * static_cast<std::size_t>(memory), 16);
    }
    bool rackUsable() const {
        for (const display::Form* panel : program.rack) {
            if (!panel->enabled) return false;
        }
        return true;
    }
    bool rackDisabled() const {
        for (const display::Form* panel : program.rack) {
            if (panel->enabled) return false;
        }
        return true;
    }
};

/// The digit that the segments show; ' ' when all are dark, '?' for anything else.
inline char shownDigit(SegmentDigit& place, display::Colour lit) {
    bool anyLit = false;
    for (int i = 0; i < 7; ++i) anyLit = anyLit || place.segment(i).colour == lit;
    if (!anyLit) return ' ';
    for (int digit = 0; digit <= 9; ++digit) {
        bool same = true;
        for (int i = 0; i < 7; ++i) {
            same = same && SegmentDigit::lights(digit, i) == (place.segment(i).colour == lit);
        }
        if (same) return static_cast<char>('0' + digit);
    }
    return '?';
}

}  // namespace hmonitor::test
