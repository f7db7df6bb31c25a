// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "analyzer/analyzer_graphs.h"
#include "analyzer/frm_spectrum_analizer.h"
#include "program/tuner.h"
#include "program/unit_generation.h"
#include "spectrum/class1.h"

namespace hmonitor {

void frmSpectrumAnalizer::butStart_Click() {
    showRunning(Running::Yes);
    // The pressed key blinks and loses the focus.
    butPause_BW.takeFocus();
    if (inDemoMode()) return;
    toldFault_ = false;
    if (measurement.CurrentSessionFile.empty()) {
        measurement.CurrentSessionFile = UniqueSessionName("");
        measurement.SpectralDensity.clear();
        showCondition();
    }
    driver.HM_Parar();
    lease_.tuneFor(AudioMode::LeftRight);
    driver.HM_Parar();
    const ScanRange range =
        ScanRange::limited(measurement.SessionInfo.StartMHz, measurement.SessionInfo.StopMHz);
    ScanStartMHz = range.startMHz;
    ScanStopMHz = range.stopMHz;
    sweep_.beginScan(range, fieldCorrection());
    if (!std::isfinite(ScanStartMHz) || !std::isfinite(ScanStopMHz)) {
        // In a damaged session the ends may be no numbers: then nothing is measured.
        endScan();
    } else if (givesFrames(HardwareVersion)) {
        measurement.ScanRunning = -1;
        frames_.start(ScanStartMHz * 10, ScanStopMHz * 10, StepKHz);
    } else {
        butSpecMode.caption = modeZoom();
        butSpecMode.press();
        ToggleScan();
    }
}

void frmSpectrumAnalizer::ToggleScan() {
    if (measurement.ScanRunning == 0) {
        measurement.ScanRunning = -1;
    } else {
        measurement.countSweep();
        showCount();
        if (measurement.SessionInfo.Acquisitions > 0) SaveSession(measurement.CurrentSessionFile);
        ShowSpectrum_3D();
    }
    runScanOld();
}

void frmSpectrumAnalizer::StopScan() {
    measurement.ScanRunning = 0;
    points_.stop();
}

void frmSpectrumAnalizer::runScanOld() {
    if (inDemoMode()) {
        show();
        return;
    }
    driver.HM_Parar();
    openBars();
    show();
    bars_->GraphClean();
    // A range without a point would loop for ever.
    if (sweep_.range().measures()) points_.measureOnAndOn(*this);
    bars_.reset();
    if (measurement.ScanRunning != 0) {
        // Nothing to measure: ends as the pause key does.
        StopScan();
        showRunning(Running::No);
    }
    program.tuner->retune();
    if (closeAfterRun_) close();
}

float frmSpectrumAnalizer::frequency(int index) const {
    return scanFrequency(index);
}

void frmSpectrumAnalizer::roundBegins() {
    sweep_.beginSweep();
    if (points_.running()) return;
    FrameBusy = -1;
    changeCountColour();
    measurement.countSweep();
    showCount();
    if (zoomOnShow()) openBars();
}

void frmSpectrumAnalizer::take(int index, float raw) {
    const int level = sweep_.take(index, raw);
    // What was measured below 88 MHz has no column.
    if (bars_ && index >= 0) {
        Int16 fromTop = 100 - level;
        bars_->GraphLine(index + 1, fromTop);
        shownBars_[index] = {columnMhz(index), level};
    }
    if (points_.running() && measurement.ScanRunning != 0) blink();
}

void frmSpectrumAnalizer::refused(int index) {
    StopScan();
    showRunning(Running::No);
    tellRefused(index);
}

void frmSpectrumAnalizer::roundEnds() {
    const bool frame = !points_.running();
    if (frame && !bars_) ShowSpectrum_3D();
    // Both files are written, even if one of them fails.
    const auto textFault = sweep_.writeText(folder);
    if (frame) {
        unsavedText_ = textFault.has_value();
        SaveSession(measurement.CurrentSessionFile);
        bars_.reset();
        FrameBusy = 0;
    }
    tellOnce(textFault);
}

void frmSpectrumAnalizer::butPause_Click() {
    desktop().pointer(display::PointerShape::Hourglass);
    showRunning(Running::No);
    butStart_BW.takeFocus();
    StopScan();
    if (frames_.running()) endScan();
    desktop().pointer(display::PointerShape::Arrow);
}

void frmSpectrumAnalizer::endScan() {
    showRunning(Running::No);
    StopScan();
    frames_.stop();
    saveWhatWasNot();
    driver.HM_Parar();
    program.tuner->retune();
}

void frmSpectrumAnalizer::saveWhatWasNot() {
    // A disk that was full at the last frame may have room by now.
    if (unsaved_) SaveSession(measurement.CurrentSessionFile);
    if (!unsavedText_) return;
    const auto fault = sweep_.writeText(folder);
    unsavedText_ = fault.has_value();
    tellOnce(fault);
}

}  // namespace hmonitor
