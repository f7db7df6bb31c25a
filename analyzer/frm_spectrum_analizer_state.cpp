// SPDX-License-Identifier: GPL-3.0-or-later
// How the analyzer's window shows the state of its scan, and how it closes.
#include "analyzer/analyzer_graphs.h"

#include <memory>
#include <string>

#include "analyzer/frm_spectrum_analizer.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/unit_generation.h"
#include "spectrum/class1.h"

namespace hmonitor {

namespace {

/// The colours between which the count alternates from sweep to sweep.
constexpr display::Colour kCountGrey{8421504};
constexpr display::Colour kCountRed{255};

}  // namespace

float frmSpectrumAnalizer::fieldCorrection() const {
    return static_cast<float>(valueOf(StationState.DbCorrection10) / 10);
}

void frmSpectrumAnalizer::showRunning(Running running) {
    const bool runs = running == Running::Yes;
    butStart.visible = runs;
    butPause_BW.visible = runs;
    butStart_BW.visible = !runs;
    butPause.visible = !runs;
    Label_State.caption = runs ? wordsIn(language, {"Midiendo", "Measuring"})
                               : wordsIn(language, {"Detenido", "Stopped"});
    // The text stays while the pictures blink.
    butStart_BW.caption =
        runs ? butStart.caption.get() : std::string(wordsIn(language, {"Iniciar", "Start"}));
}

void frmSpectrumAnalizer::blink() {
    const bool lit = butStart.visible;
    butStart.visible = !lit;
    butStart_BW.visible = lit;
}

void frmSpectrumAnalizer::changeCountColour() {
    display::Label& field = MeasurementAquisitonsField;
    field.colour = field.colour.get() == kCountGrey ? kCountRed : kCountGrey;
}

void frmSpectrumAnalizer::tellRefused(int index) {
    Label_State.caption =
        std::string(wordsIn(language, {"La unidad falló en ", "The unit failed at "})) +
        shortText(scanFrequency(index) / 10).str() + " MHz";
}

void frmSpectrumAnalizer::openBars() {
    constexpr int kWholeBand = 800;
    bars_ = std::make_unique<Class1>(
        sweepGraph(zoomCanvas_, kWholeBand, StepKHz, skipLabelsFor(last())));
    bars_->GraphInit();
    shownBars_.clear();
}

void frmSpectrumAnalizer::closeRequested() {
    if (points_.running()) {
        // The window is closed when the measurement that holds the thread returns.
        StopScan();
        showRunning(Running::No);
        closeAfterRun_ = true;
        return;
    }
    close();
}

void frmSpectrumAnalizer::close() {
    closeAfterRun_ = false;
    desktop().pointer(display::PointerShape::Hourglass);
    StopScan();
    if (frames_.running()) {
        frames_.stop();
        driver.HM_Parar();
    }
    butSpecMode.enabled = true;
    desktop().pointer(display::PointerShape::Arrow);
    unload();
}

void frmSpectrumAnalizer::onUnload() {
    measurement.ScanRunning = 0;
    saveWhatWasNot();
    // Returns the unit to the panels and enables the rack.
    lease_.close(UnitLease::Back::AsStored);
}

}  // namespace hmonitor
