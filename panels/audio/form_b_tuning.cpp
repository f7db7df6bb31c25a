// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "analyses/form_d.h"
#include "core/memory_block.h"
#include "core/numbers.h"
#include "core/panel_settings.h"
#include "core/response_switch.h"
#include "core/results_file.h"
#include "core/taken_for_granted.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"
#include "startup/form3.h"

namespace hmonitor {

namespace {

constexpr int kLowestFrequency = 875;  ///< 87.5 MHz, where the tuning bar begins

}  // namespace

double Form_B::barFrequency(int bar) const {
    const double frequency = bar + kLowestFrequency;
    return valueOf(StationState.HalfStep) == 5 ? frequency + 0.5 : frequency;
}

bool Form_B::memoriesAllEmpty() const {
    const auto block = takenForGranted(desktop(), MemoryBlock::read(program.files));
    for (int memory = 1; memory <= MemoryBlock::kMemories; ++memory) {
        if (!block.isEmpty(memory)) return false;
    }
    return true;
}

void Form_B::stepMemory(Step step) {
    if (step == Step::Next) {
        if (StationState.FirstSelect == "1") {
            StationState.FirstSelect = "00";
            MemoryNumber = toWhole(valueOf(StationState.MemoryNumber));
        }
        if (MemoryNumber < 0) {
            MemoryNumber = 0;
            StationState.MemoryNumber = "0";
        }
    }
    ButtonTune = "1";
    OffMemory = 0;
    const int before = MemoryNumber;
    if (MemoryState == "cero") {
        MemoryState = "";
    } else {
        MemoryNumber += step == Step::Next ? 1 : -1;
        if (MemoryNumber > 16) MemoryNumber = 1;
        if (MemoryNumber < 1) MemoryNumber = 16;
        StationState.MemoryNumber = wholeText(MemoryNumber);
    }
    const auto block = takenForGranted(desktop(), MemoryBlock::read(program.files));
    if (block.isEmpty(MemoryNumber)) {
        if (memoriesAllEmpty()) {
            // A full round ends where it began, on no memory.
            MemoryNumber = before;
            StationState.MemoryNumber = wholeText(before);
            tuneWhereTheBarStands();
            return;
        }
        // The press for the next slot runs whole before this one goes on: the station that it
        // found is tuned once more for each empty slot that was passed.
        stepMemory(step);
    }
    Command9();
    Command5();
}

void Form_B::tuneWhereTheBarStands() {
    ManualTune = 1;
    HScroll1_Change();
}

void Form_B::Command9() {
    const auto block = takenForGranted(desktop(), MemoryBlock::read(program.files));
    RadioName = block.name(MemoryNumber);
    const StoredFrequency stored = block.frequency(MemoryNumber);
    StationState.HalfStep = stored.half == hmonitor::HalfStep::Yes ? "5" : "0";
    StationState.MemoryFreq = shortText(stored.tuned());
    StationState.StationName = RadioName;
    ManualTune = 0;
    tuneBarTo(toWhole(stored.frequency - kLowestFrequency));
    Command1();
}

void Form_B::tuneBarTo(int bar) {
    bar = std::clamp(bar, HScroll1.minimum.get(), HScroll1.maximum.get());
    if (HScroll1.value != bar) {
        HScroll1.value = bar;
    } else if (PanelStarted == 0) {
        // The bar comes up on its lowest value; a preset that stands there starts the rack too.
        HScroll1_Change();
    } else {
        cambfre();
    }
}

void Form_B::HScroll1_Change() {
    tune(Tuning::ByBar);
}

void Form_B::cambfre() {
    tune(Tuning::Retune);
}

void Form_B::cancelArmedResponse() {
    program.Form_D->Image5.picture = "OffN";
    StationState.ResponseState = "no";
    StationState.ResponseAuto = "";
    tellFault(desktop(), ResponseSwitch::off().write(program.files));
}

void Form_B::leaveMemory() {
    RadioName = "";
    Command1();
    MemoryState = "cero";
    Command5();
    OffMemory = 1;
}

void Form_B::placeLevelElements() {
    for (std::size_t i = 0; i < LineAudL.size(); ++i) {
        const float x = 5 + 45 * static_cast<float>(i);
        for (display::Line* element : {&LineAudL[i], &LineAudR[i]}) {
            element->visible = true;
            element->x1 = x;
            element->x2 = x;
        }
    }
}

void Form_B::tune(Tuning how) {
    const bool byBar = how == Tuning::ByBar;
    const bool first = byBar && PanelStarted == 0;
    TunedFreq = barFrequency(HScroll1.value);
    int armed =
        toWhole(takenForGranted(desktop(), ResponseSwitch::read(program.files, SwitchLine::Armed))
                    .value(SwitchLine::Armed));
    if (byBar) {
        if (ResponseSeen == 1) {
            // A hand on the bar cancels an armed response.
            cancelArmedResponse();
            armed = 0;
        }
        if (first) placeLevelElements();
        if (armed == 1) {
            StationState.ResponseState = "si";
            StationState.ResponseAuto = "si";
            program.Form_D->Image5.picture = "OffA";
        }
        ResponseSeen = 1;
        if (ManualTune == 1) leaveMemory();
        ManualTune = 1;
    }
    ResultsFile::read(program.files, TunedFreq).putFloors(StationState);
    const auto settings =
        takenForGranted(desktop(), PanelSettings::read(program.files, PanelLine::AudioMode));
    int audioMode = toWhole(settings.value(PanelLine::AudioMode));
    if (first && settings.value(PanelLine::AudioMode) == 1) {
        // Every start of the program falls back to the mode L and R.
        storeAudioMode("0");
        audioMode = 0;
    }
    program.Form1->Timer1.enabled = false;
    program.Form1->Timer4.enabled = false;
    Timer2.enabled = false;
    Timer3.enabled = false;
    if (!inDemoMode()) {
        tuneUnit({toWhole(settings.value(PanelLine::Detector)), audioMode, armed,
                  toWhole(settings.value(PanelLine::MakeLog))});
    }
    StationState.CurrentFreq = shortText(TunedFreq);
    StationState.ModSettle = "0";
    program.Form1->Timer1.enabled = true;
    program.Form1->Timer4.enabled = true;
    Timer2.enabled = true;
    Timer3.enabled = true;
    Command13();
    program.Form_D->spect();
    program.Form_D->respo();
    program.Form1->RefrescoIntensidadDeCampo();
    StationState.TuneTag = wholeText(floorWhole(desktop().random() * 9999 + 1));
    program.Form_C->Command4();
    program.Form_C->Command6();
    program.Form1->DrawMultyPath();
    if (first) {
        program.Form3->unload();
        PanelStarted = 1;
        desktop().queue().openGate();
    }
}

void Form_B::tuneUnit(const std::array<int, 4>& switches) {
    const bool byButton = ButtonTune == "1";
    if (byButton) enabled = false;
    driver.HM_Parar();
    driver.HM_Normal(static_cast<float>(TunedFreq), switches[0], switches[1], switches[2],
                     switches[3]);
    if (!byButton) return;
    enabled = true;
    ButtonTune = "0";
}

}  // namespace hmonitor
