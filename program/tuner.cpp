// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/tuner.h"

#include "core/numbers.h"
#include "core/panel_settings.h"
#include "core/response_switch.h"
#include "core/results_file.h"
#include "program/report_fault.h"

namespace hmonitor {

double Tuner::frequencyAt(int bar) const {
    const double frequency = bar + kLowestFrequency;
    return valueOf(program_.StationState.HalfStep) == 5 ? frequency + 0.5 : frequency;
}

void Tuner::storeModeLine(AudioMode mode) {
    report(program_.desktop, rewritePanelLine(program_.files, PanelLine::AudioMode,
                                              mode == AudioMode::LeftRight ? "0" : "1"));
}

void Tuner::storeMode(AudioMode mode) {
    panels_->showMode(mode);
    storeModeLine(mode);
}

void Tuner::disarmResponse() {
    panels_->showResponseArmed(false);
    program_.StationState.ResponseState = "no";
    program_.StationState.ResponseAuto = "";
    warn(program_.desktop, ResponseSwitch::off().write(program_.files));
}

void Tuner::tune(How how) {
    StationState& state = program_.StationState;
    const bool first = how == How::ByBar && PanelStarted == 0;
    TunedFreq = frequencyAt(panels_->bar());
    int armed =
        toWhole(require(program_.desktop, ResponseSwitch::read(program_.files, SwitchLine::Armed))
                    .value(SwitchLine::Armed));
    if (how == How::ByBar) armed = lookAtBar(armed);
    ResultsFile::read(program_.files, TunedFreq).putFloors(state);
    const Switches switches = readSwitches(armed, first);
    panels_->runClocks(false);
    if (state.DemoMode != "si") tuneUnit(switches);
    state.CurrentFreq = shortText(TunedFreq);
    state.ModSettle = "0";
    panels_->runClocks(true);
    panels_->showTuned();
    state.TuneTag = wholeText(floorWhole(program_.desktop.random() * 9999 + 1));
    panels_->showFigures();
    if (!first) return;
    panels_->rackStands();
    PanelStarted = 1;
    program_.desktop.queue().openGate();
}

/// What a move of the bar does besides tuning. Returns whether the response is armed then.
int Tuner::lookAtBar(int armed) {
    if (ResponseSeen == 1) {
        // Moving the bar by hand cancels an armed response.
        disarmResponse();
        armed = 0;
    }
    if (PanelStarted == 0) panels_->firstTuning();
    if (armed == 1) {
        program_.StationState.ResponseState = "si";
        program_.StationState.ResponseAuto = "si";
        panels_->showResponseArmed(true);
    }
    ResponseSeen = 1;
    if (ManualTune == 1) panels_->leaveMemory();
    ManualTune = 1;
    return armed;
}

Tuner::Switches Tuner::readSwitches(int armed, bool first) {
    const auto settings =
        require(program_.desktop, PanelSettings::read(program_.files, PanelLine::AudioMode));
    int audioMode = toWhole(settings.value(PanelLine::AudioMode));
    if (first && settings.value(PanelLine::AudioMode) == 1) {
        // Every start of the program resets the mode to L and R.
        storeModeLine(AudioMode::LeftRight);
        audioMode = 0;
    }
    return {toWhole(settings.value(PanelLine::Detector)), audioMode, armed,
            toWhole(settings.value(PanelLine::MakeLog))};
}

void Tuner::tuneUnit(const Switches& switches) {
    const bool byButton = ButtonTune == "1";
    if (byButton) panels_->enableTuning(false);
    program_.driver.HM_Parar();
    program_.driver.HM_Normal(static_cast<float>(TunedFreq), switches.detector, switches.audioMode,
                              switches.response, switches.logFiles);
    if (!byButton) return;
    panels_->enableTuning(true);
    ButtonTune = "0";
}

}  // namespace hmonitor
