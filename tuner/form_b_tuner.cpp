// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/form_b_tuner.h"

#include <string>

#include "core/numbers.h"
#include "panels/audio/form_b.h"
#include "program/make_form.h"
#include "tuner/key_filters.h"
#include "tuner/keypad_entry.h"

namespace hmonitor {

Form_bTuner::Form_bTuner(Program& itsProgram) : ProgramForm(itsProgram, "Form_bTuner") {
    for (int digit = 1; digit <= 9; ++digit) {
        digits[digit].onClick = [this, digit] { append(static_cast<char>('0' + digit)); };
    }
    SSCommand13.onClick = [this] { append('0'); };
    SSCommand11.onClick = [this] { Text1.text = ""; };
    SSCommand10.onClick = [this] { enter(); };
    SSCommand12.onClick = [this] { close(); };
    Text1.onTyped = [this](char32_t character) -> char32_t {
        if (isDigitKey(character)) return character;
        desktop().beep();
        return 0;
    };
    // Digits that may still become a frequency are not marked as wrong.
    Text1.onChange = [this] { Ring.visible = !canBecomeTunable(Text1.text); };
    Text1.onEnter = [this] { SSCommand10.press(); };
    bindHandle(Faceplate.onMouseDown, Faceplate.onMouseMove, {this});
}

void Form_bTuner::onLoad() {
    const bool spanish = program.words.gLanguage == "ES";
    language = spanish ? display::Language::Spanish : display::Language::English;
}

void Form_bTuner::activated() {
    Text1.takeFocus();
}

void Form_bTuner::closeRequested() {
    SSCommand12.press();
}

void Form_bTuner::append(char digit) {
    Text1.text = Text1.text.get() + digit;
}

void Form_bTuner::enter() {
    Ring.visible = !Text1.text.empty() && !keypadFrequency(Text1.text);
    tune();
    // The next digit starts a new frequency.
    Text1.selectAll();
}

void Form_bTuner::tune() {
    constexpr double kBandStart = 875;  // where the tuning bar stands at 0
    const auto entry = keypadFrequency(Text1.text);
    if (!entry) return;
    StationState.HalfStep = entry->half == HalfStep::Yes ? "5" : "0";
    Form_B& panel = *program.Form_B;
    const double position = entry->frequency - kBandStart;
    if (position == panel.HScroll1.value) {
        // Setting the bar to its present value would fire no event.
        panel.cambfre();
    } else {
        panel.HScroll1.value = toWhole(position);
    }
    StationState.MemoryFreq = shortText(entry->frequency);
}

void Form_bTuner::close() {
    program.enableRack();
    unload();
}

template MadeForm makeForm(Program&, Slot<Form_bTuner>&);

}  // namespace hmonitor
