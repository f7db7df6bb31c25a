// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "analyses/form_d.h"
#include "core/memory_block.h"
#include "core/numbers.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"
#include "program/report_fault.h"
#include "startup/form3.h"

namespace hmonitor {

bool Form_B::memoriesAllEmpty() const {
    const auto block = require(desktop(), MemoryBlock::read(program.files));
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
    const auto block = require(desktop(), MemoryBlock::read(program.files));
    if (block.isEmpty(MemoryNumber)) {
        if (memoriesAllEmpty()) {
            // After a full round without a filled slot no memory is tuned.
            MemoryNumber = before;
            StationState.MemoryNumber = wholeText(before);
            tuneWhereTheBarStands();
            return;
        }
        // The press for the next slot is handled completely before this one goes on: the station
        // that it found is tuned once more for each empty slot that was passed.
        stepMemory(step);
    }
    Command9();
    Command5();
}

void Form_B::tuneMemory(int memory) {
    const auto block = require(desktop(), MemoryBlock::read(program.files));
    if (block.isEmpty(memory)) return;
    // What the next and previous keys step from.
    MemoryState = "";
    ButtonTune = "1";
    StationState.MemoryNumber = wholeText(memory);
    Command11();
}

void Form_B::tuneWhereTheBarStands() {
    ManualTune = 1;
    program.tuner->tuneByBar();
}

void Form_B::Command9() {
    const auto block = require(desktop(), MemoryBlock::read(program.files));
    RadioName = block.name(MemoryNumber);
    const StoredFrequency stored = block.frequency(MemoryNumber);
    StationState.HalfStep = stored.half == hmonitor::HalfStep::Yes ? "5" : "0";
    StationState.MemoryFreq = shortText(stored.tuned());
    StationState.StationName = RadioName;
    ManualTune = 0;
    tuneBarTo(toWhole(stored.frequency - Tuner::kLowestFrequency));
    Command1();
}

void Form_B::tuneBarTo(int bar) {
    bar = std::clamp(bar, HScroll1.minimum.get(), HScroll1.maximum.get());
    if (HScroll1.value != bar) {
        HScroll1.value = bar;
    } else if (PanelStarted == 0) {
        // The bar starts at its lowest value; a preset with that value must start the rack too.
        program.tuner->tuneByBar();
    } else {
        cambfre();
        // The bar did not move, so its next move is the user's.
        ManualTune = 1;
    }
}

void Form_B::tuneTo(const WantedStation& station) {
    if (station.memory > 0) {
        MemoryState = "";
        StationState.MemoryNumber = wholeText(station.memory);
        Command11();
        return;
    }
    const double step = std::floor(station.frequency);
    StationState.HalfStep = step < station.frequency ? "5" : "0";
    const int position = toWhole(step - Tuner::kLowestFrequency);
    if (position != HScroll1.value) {
        HScroll1.value = position;
        return;
    }
    // The bar stands there already: it would tune nothing, and leave no memory.
    leaveMemory();
    cambfre();
}

void Form_B::cambfre() {
    program.tuner->retune();
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

/// The panels' side of a tuning. A panel that is not loaded yet is loaded here.
class Form_B::RackPanels final : public TuningPanels {
 public:
    explicit RackPanels(Program& program) : program_(program) {}

    int bar() override { return program_.Form_B->HScroll1.value; }
    void moveTo(const WantedStation& station) override { program_.Form_B->tuneTo(station); }
    void showMode(AudioMode mode) override {
        const bool plain = mode == AudioMode::LeftRight;
        program_.Form_B->Image1.picture = plain ? "LyRA" : "LyRN";
        program_.Form_B->Image2.picture = plain ? "LRN" : "LRA";
    }
    void showResponseArmed(bool armed) override {
        program_.Form_D->Image5.picture = armed ? "OffA" : "OffN";
    }
    void firstTuning() override { program_.Form_B->placeLevelElements(); }
    void leaveMemory() override { program_.Form_B->leaveMemory(); }
    void runClocks(bool run) override {
        for (display::Timer* clock : {&program_.Form1->Timer1, &program_.Form1->Timer4,
                                      &program_.Form_B->Timer2, &program_.Form_B->Timer3}) {
            clock->enabled = run;
        }
    }
    void enableTuning(bool enabled) override { program_.Form_B->enabled = enabled; }
    void showTuned() override {
        program_.Form_B->Command13();
        program_.Form_D->spect();
        program_.Form_D->respo();
        program_.Form1->RefrescoIntensidadDeCampo();
    }
    void showFigures() override {
        program_.Form_C->Command4();
        program_.Form_C->Command6();
        program_.Form1->DrawMultyPath();
    }
    void rackStands() override { program_.Form3->unload(); }

 private:
    Program& program_;
};

std::unique_ptr<TuningPanels> Form_B::rackPanels(Program& program) {
    return std::make_unique<RackPanels>(program);
}

Form_B::~Form_B() {
    program.tuner->shownOn(nullptr);
}

}  // namespace hmonitor
