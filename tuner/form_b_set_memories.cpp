// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/form_b_set_memories.h"

#include <cstdlib>
#include <string>
#include <utility>

#include "core/numbers.h"
#include "panels/audio/form_b.h"
#include "program/make_form.h"
#include "program/report_fault.h"
#include "tuner/memory_entry.h"
#include "tuner/preset_look.h"
#include "tuner/preset_words.h"

namespace hmonitor {

namespace {

constexpr char kNoMemory[] = "cero";

std::string_view withoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

Form_bSetMemories::Form_bSetMemories(Program& itsProgram)
    : ProgramForm(itsProgram, "Form_bSetMemories") {
    for (int memory = 1; memory <= kMemories; ++memory) {
        presets[memory].onClick = [this, memory] { select(memory); };
    }
    SSCommand20.onClick = [this] { save(); };
    SSCommand22.onClick = [this] { erase(); };
    SSCommand17.onClick = [this] { accept(); };
    SSCommand18.onClick = [this] { cancel(); };
    SSCommand19.onClick = [this] { changeWidth(); };
    SSCommand21.onClick = [this] { label_dbCorrection.locked = false; };
    SSCheck1.onClick = [this] { exclude(SSCheck1, SSCheck2); };
    SSCheck2.onClick = [this] { exclude(SSCheck2, SSCheck1); };
    bindFields();
}

void Form_bSetMemories::onLoad() {
    MemoryBlock.reset();
    SelectedMemory = kNoMemory;
    IsEmptySlot = 0;
    WidthState = 2;
    LoadedOnce = 0;
    excluding_ = false;
    countChanges(0);
    Command4();
    Command5();
    SSCommand19.press();
}

void Form_bSetMemories::activated() {
    Text1.takeFocus();
    if (LoadedOnce == 1) return;
    label_dbCorrection.locked = true;
    MemoryBlock = readBlock();
    Command5();
    if (opensToStore()) {
        offerTunedFrequency();
    } else {
        SelectedMemory = wholeText(toWhole(valueOf(StationState.CurrentFreq)));
        Command1();
    }
    // Until here it held the number of the memory.
    StationState.CurrentFreq = shortText(program.Form_B->TunedFreq);
    Text1.selectAll();
    LoadedOnce = 1;
}

void Form_bSetMemories::closeRequested() {
    SSCommand18.press();
}

bool Form_bSetMemories::opensToStore() const {
    return valueOf(StationState.MemoryEdit) == 1;
}

int Form_bSetMemories::selected() const {
    return toWhole(valueOf(SelectedMemory));
}

bool Form_bSetMemories::presetSelected() const {
    return selected() >= 1 && selected() <= kMemories;
}

MemoryBlock Form_bSetMemories::readBlock() const {
    return require(desktop(), hmonitor::MemoryBlock::read(program.files));
}

void Form_bSetMemories::offerTunedFrequency() {
    // Only whole tenths are proposed: a half step has to be typed.
    Text1.text = megahertzText({valueOf(StationState.MemoryEditFreq), HalfStep::No});
    SelectedMemory = kNoMemory;
    Command2();
    Text2.text = "";
}

void Form_bSetMemories::select(int memory) {
    SelectedMemory = wholeText(memory);
    Command1();
    // An empty memory never tunes.
    if (!Text1.text.empty()) tuneSelected();
}

void Form_bSetMemories::tuneSelected() {
    enabled = false;
    StationState.MemoryNumber = SelectedMemory;
    program.Form_B->Command11();
    enabled = true;
}

void Form_bSetMemories::Command1() {
    Text1.text = "";
    Command2();
    const hmonitor::MemoryBlock block = readBlock();
    if (block.isEmpty(selected())) {
        showEmpty();
        return;
    }
    IsEmptySlot = 0;
    if (opensToStore()) StationState.MemoryEdit = "0";
    Text1.text = megahertzText(block.frequency(selected()));
    Text2.text = withoutTrailingBlanks(block.name(selected()));
}

void Form_bSetMemories::showEmpty() {
    if (opensToStore()) {
        StationState.MemoryEdit = "0";
        // The field was just cleared. The message says that the frequency is wrong, and so asks the
        // user to type the one to store.
        SSCommand20.press();
        Command5();
        Text2.text = "";
        return;
    }
    Text1.text = "";
    Text2.text = "";
    IsEmptySlot = 1;
}

void Form_bSetMemories::Command2() {
    const bool none = SelectedMemory == kNoMemory;
    const int number = std::abs(selected());
    if (none || number < 10) {
        memoryTens.blank(look::kUnlit);
    } else {
        Command3(memoryTens, number / 10 % 10);
    }
    if (none) {
        memoryUnits.blank(look::kUnlit);
    } else {
        Command3(memoryUnits, number % 10);
    }
    Label_Selected.caption = selectedText(language, none ? 0 : number);
    markSelected();
}

void Form_bSetMemories::markSelected() {
    for (int memory = 1; memory <= kMemories; ++memory) {
        const bool marked = memory == selected();
        presets[memory].lit = marked;
        const display::Colour colour = marked ? display::kWhite : look::kScaleColour;
        const display::Font font{look::kCaption.size,
                                 marked ? display::Weight::Bold : display::Weight::Normal};
        for (display::Label* label :
             {&ListNumber[memory], &ListName[memory], &ListFrequency[memory]}) {
            label->colour = colour;
            label->font = font;
        }
    }
}

void Form_bSetMemories::Command3(SegmentDigit& place, int digit) {
    place.show(digit, preset_look::kDigit, look::kUnlit);
}

void Form_bSetMemories::Command5() {
    const hmonitor::MemoryBlock block = readBlock();
    for (int memory = 1; memory <= kMemories; ++memory) {
        presets[memory].colour = block.isEmpty(memory) ? preset_look::kEmpty : preset_look::kStored;
        listMemory(block, memory);
    }
}

void Form_bSetMemories::listMemory(const hmonitor::MemoryBlock& block, int memory) {
    StoredPreset preset;
    if (!block.isEmpty(memory)) {
        const std::string name = block.name(memory);
        preset.name = withoutTrailingBlanks(name);
        preset.megahertz = megahertzText(block.frequency(memory));
    }
    ListName[memory].caption = preset.name;
    ListFrequency[memory].caption = preset.megahertz;
    display::Key& key = presets[memory];
    key.says = block.isEmpty(memory) ? emptyPresetName(memory) : presetName(memory);
    PresetTip& tip = presetTips_[static_cast<std::size_t>(memory)];
    PresetTip now = presetTip(memory, preset);
    if (now == tip && *key.tip.english != 0) return;
    tip = std::move(now);
    key.tip = tip.words();
    key.touch();
}

void Form_bSetMemories::changeWidth() {
    if (WidthState == 1) {
        width = preset_look::kWide;
        SSCommand19.caption = "Optimize <<";
        WidthState = 2;
    } else {
        width = preset_look::kNarrow;
        SSCommand19.caption = "Advanced >>";
        WidthState = 1;
    }
    // Controls outside the visible part take no focus either.
    Options.visible = WidthState == 2;
}

template MadeForm makeForm(Program&, Slot<Form_bSetMemories>&);

}  // namespace hmonitor
