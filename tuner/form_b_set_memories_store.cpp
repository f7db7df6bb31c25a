// SPDX-License-Identifier: GPL-3.0-or-later
// What Form_bSetMemories writes: presets and options.
#include <string>

#include "core/numbers.h"
#include "core/panel_settings.h"
#include "program/report_fault.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/key_filters.h"
#include "tuner/memory_entry.h"

namespace hmonitor {

namespace {

std::string_view switchText(bool on) {
    return on ? "1" : "0";
}

/// Says how many changes the key takes back. The tip points into `kept`.
display::Words cancelTipOf(display::Language language, int changes, std::string& kept) {
    if (changes == 0) {
        return {"Cierra y deja las memorias como estaban al abrir",
                "Closes and leaves the memories as they were when this window opened"};
    }
    const std::string count = wholeText(changes).str();
    const bool one = changes == 1;
    if (language == display::Language::Spanish) {
        kept = "Cierra y deshace " + count + (one ? " cambio" : " cambios") +
               " de las memorias; Escape los conserva";
    } else {
        kept = "Closes and takes back " + count + (one ? " change" : " changes") +
               " of the memories; Escape keeps them";
    }
    return {kept.c_str(), kept.c_str()};
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
    const auto fault = block.write(program.files);
    warn(desktop(), fault);
    if (!fault) countChanges(changes_ + 1);
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
        warn(desktop(), fault);
        return;
    }
    countChanges(changes_ + 1);
    IsEmptySlot = 1;
    Text1.text = "";
    Command5();
}

void Form_bSetMemories::countChanges(int changes) {
    changes_ = changes;
    // Escape loses least: what was saved stays.
    SSCommand18.isCancel = changes == 0;
    SSCommand17.isCancel = changes > 0;
    SSCommand18.tip = cancelTipOf(language, changes, cancelTip_);
    SSCommand18.touch();
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
    if (changed) warn(desktop(), MemoryBlock->restore(program.files));
    close();
}

void Form_bSetMemories::close() {
    program.enableRack();
    unload();
}

void Form_bSetMemories::Command4() {
    const auto settings =
        require(desktop(), PanelSettings::read(program.files, PanelLine::MakeLog));
    label_dbCorrection.text = settings.line(PanelLine::DbCorrection);
    SSCheck1.checked = settings.value(PanelLine::OddFrequencies) == 1;
    SSCheck2.checked = settings.value(PanelLine::AllFrequencies) == 1;
    SSCheck3.checked = settings.value(PanelLine::MakeLog) == 1;
}

void Form_bSetMemories::advan() {
    const double correction = valueOf(label_dbCorrection.text);
    const auto settings =
        require(desktop(), PanelSettings::read(program.files, PanelLine::ScannerOffset));
    const auto fault = settings.with(PanelLine::DbCorrection, shortText(correction))
                           .with(PanelLine::OddFrequencies, switchText(SSCheck1.checked))
                           .with(PanelLine::AllFrequencies, switchText(SSCheck2.checked))
                           .with(PanelLine::MakeLog, switchText(SSCheck3.checked))
                           .write(program.files);
    if (fault) {
        warn(desktop(), fault);
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
