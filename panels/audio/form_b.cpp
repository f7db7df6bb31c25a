// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/audio/form_b.h"

#include <cmath>
#include <string>

#include "core/numbers.h"
#include "program/make_form.h"
#include "spectrum/open_spectrum.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/form_b_tuner.h"

namespace hmonitor {

Form_B::Form_B(Program& itsProgram) : ProgramForm(itsProgram, "Form_B") {
    Timer2.onTick = [this] { heartbeat(); };
    Timer3.onTick = [this] { dropPeakMarks(); };
    SSCommand1.onClick = [this] { stepMemory(Step::Next); };
    SSCommand2.onClick = [this] { stepMemory(Step::Previous); };
    HScroll1.onChange = [this] { program.tuner->tuneByBar(); };
    HScroll1.onScroll = [this] { showFrequency(program.tuner->frequencyAt(HScroll1.thumb)); };
    Image1.onPress = [this] {
        GuardoModo_LR();
        driver.HM_Parar();
        cambfre();
    };
    Image2.onPress = [this] {
        GuardoModo_LmasR_LmenosR();
        driver.HM_Parar();
        cambfre();
    };
    bindKey(Image3, "SetN", "SetA", [this] { openEditor(); });
    bindKey(Image4, "RemoteN", "RemoteA", [this] { openKeypad(); });
    bindReadings();
    panels_ = rackPanels(program);
    program.tuner->shownOn(panels_.get());
}

void Form_B::bindReadings() {
    PowerDigits.reading = [this] { return figuresOf({&powerTens, &powerUnits}); };
    PhaseDigits.reading = [this] {
        const char* const hundreds = Line120.colour == SegmentOnColour ? "1" : "";
        return hundreds + figuresOf({&phaseTens, &phaseUnits});
    };
    HScroll1.reading = [this] { return std::string(Label_FrecRadio.caption.get()); };
    MemoryWell.reading = [this] {
        const char* const tens = Line46.colour == SegmentOnColour ? "1" : "";
        return tens + figuresOf({&memoryUnits});
    };
}

void Form_B::onLoad() {
    Image1.picture = "LyRN";
    Image2.picture = "LRN";
    Image3.picture = "SetN";
    Image4.picture = "RemoteN";
    StationState.HalfStep = "0";
    Pi = 4 * std::atan(1.0);
}

void Form_B::InicioForm() {
    Command13();
    SSCommand1.press();
}

void Form_B::Command1() {
    StationState.RadioName = RadioName;
    Label_RadioName.caption = RadioName;
}

void Form_B::Command11() {
    MemoryNumber = toWhole(valueOf(StationState.MemoryNumber));
    OffMemory = 0;
    Command5();
    Command9();
}

void Form_B::Command13() {
    showFrequency(TunedFreq);
}

void Form_B::showFrequency(double frequency) {
    Label_FrecRadio.caption = mask("0.00", frequency / 10);
}

void Form_B::GuardoModo_LR() {
    program.tuner->storeMode(AudioMode::LeftRight);
}

void Form_B::GuardoModo_LmasR_LmenosR() {
    program.tuner->storeMode(AudioMode::SumDifference);
}

void Form_B::openEditor() {
    if (!program.Form_bSetMemories.filled()) return;
    // Closed before the panels are updated, since closing it may tune.
    closeChannelSpectrum(program);
    StationState.MemoryEditFreq = shortText(TunedFreq);
    // The memory number on purpose: the editor takes it from here.
    StationState.CurrentFreq = wholeText(MemoryNumber);
    program.disableRack();
    if (OffMemory == 1) {
        StationState.MemoryEdit = "1";
        MemoryState = "";
    } else {
        StationState.MemoryEdit = "0";
    }
    program.Form_bSetMemories->show();
}

void Form_B::openKeypad() {
    if (!program.Form_bTuner.filled()) return;
    closeChannelSpectrum(program);
    program.disableRack();
    program.Form_bTuner->show();
}

template MadeForm makeForm(Program&, Slot<Form_B>&);

}  // namespace hmonitor
