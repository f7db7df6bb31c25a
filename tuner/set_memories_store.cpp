// SPDX-License-Identifier: GPL-3.0-or-later
// What Form_bSetMemories writes: presets and options.
#include <string>

#include "core/numbers.h"
#include "core/panel_settings.h"
#include "core/taken_for_granted.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/key_filters.h"
#include "tuner/memory_entry.h"

namespace hmonitor {

namespace {

std::string_view switchText(bool on) {
    return on ? "1" : "0";
}

}  // namespace

void Form_bSetMemories::bindFields() {
    Text2.onTyped = upperCase;
    label_dbCorrection.onTyped = [this](char32_t character) -> char32_t {
        if (isCorrectionKey(character)) return character;
        desktop().beep();
        return 0;
    };
    // Enter in a field keeps what was typed there; elsewhere it accepts the dialog.
    Text1.onEnter = [this] { SSCommand20.press(); };
    Text2.onEnter = [this] { SSCommand20.press(); };
}

void Form_bSetMemories::save() {
    // With no preset selected there is no record to write, and the block's head is no memory.
    if (!presetSelected()) return;
    if (const auto frequency = recordFrequency(Text1.text)) {
        saveAs(*frequency);
        return;
    }
    const bool spanish = program.words.gLanguage == "ES";
    desktop().messageBox({"Memory Preset",
                          spanish ? "La frecuencia es incorrecta." : "The frequency is incorrect.",
                          display::BoxIcon::Critical});
}

void Form_bSetMemories::saveAs(std::string_view frequency) {
    hmonitor::MemoryBlock block = readBlock();
    block.store(selected(), Text2.text, frequency);
    tellFault(desktop(), block.write(program.files));
    Command1();
    Command5();
    // A write that failed can leave the memory empty.
    if (!Text1.text.empty()) tuneSelected();
}

void Form_bSetMemories::erase() {
    if (!presetSelected() || IsEmptySlot == 1) return;
    hmonitor::MemoryBlock block = readBlock();
    block.erase(selected());
    if (const auto fault = block.write(program.files)) {
        tellFault(desktop(), fault);
        return;
    }
    IsEmptySlot = 1;
    Text1.text = "";
    Command5();
}

void Form_bSetMemories::accept() {
    StationState.MemoryNumber = SelectedMemory;
    advan();
    close();
}

void Form_bSetMemories::cancel() {
    Command5();
    // In a folder that cannot be written, leaving without a change is no fault.
    const bool changed = MemoryBlock && readBlock().fileBytes() != MemoryBlock->fileBytes();
    if (changed) tellFault(desktop(), MemoryBlock->restore(program.files));
    close();
}

void Form_bSetMemories::close() {
    program.enableRack();
    unload();
}

void Form_bSetMemories::Command4() {
    const auto settings =
        takenForGranted(desktop(), PanelSettings::read(program.files, PanelLine::MakeLog));
    label_dbCorrection.text = settings.line(PanelLine::DbCorrection);
    SSCheck1.checked = settings.value(PanelLine::OddFrequencies) == 1;
    SSCheck2.checked = settings.value(PanelLine::AllFrequencies) == 1;
    SSCheck3.checked = settings.value(PanelLine::MakeLog) == 1;
}

void Form_bSetMemories::advan() {
    const double correction = valueOf(label_dbCorrection.text);
    const auto settings =
        takenForGranted(desktop(), PanelSettings::read(program.files, PanelLine::ScannerOffset));
    const auto fault = settings.with(PanelLine::DbCorrection, shortText(correction))
                           .with(PanelLine::OddFrequencies, switchText(SSCheck1.checked))
                           .with(PanelLine::AllFrequencies, switchText(SSCheck2.checked))
                           .with(PanelLine::MakeLog, switchText(SSCheck3.checked))
                           .write(program.files);
    if (fault) {
        tellFault(desktop(), fault);
        return;
    }
    StationState.DbCorrection10 = shortText(correction * 10);
}

void Form_bSetMemories::exclude(display::CheckBox& changed, display::CheckBox& other) {
    if (excluding_) return;
    excluding_ = true;
    other.checked = !changed.checked;
    excluding_ = false;
}

}  // namespace hmonitor
