// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "analyses/form_band_scanner.h"
#include "core/numbers.h"
#include "core/panel_settings.h"
#include "core/run_guard.h"
#include "core/taken_for_granted.h"
#include "panels/audio/form_b.h"

namespace hmonitor {

namespace {

/// A run that is measured one by one wraps behind column 5 whatever the chart has: with all
/// channels or 250 kHz its cells do not lie under their legend, and its levels are not stored.
constexpr int kOneByOneColumns = 5;
/// Every run begins behind column 2, where the odd channels begin: 87.5 MHz of all channels lands
/// under ".2".
constexpr int kStartColumn = 2;

constexpr int kFrameWidth = 200;  ///< hundredths of a MHz

float tenths(int hundredths) {
    return static_cast<float>(hundredths) / 10.f;
}

}  // namespace

void Form_BandSCanner::Command3D1_Click() {
    if (inDemoMode()) return;
    driver.HM_Parar();
    if (hardwareVersion_ == 2) SSCommand1.colour = display::kRed;
    unitAway_ = true;
    program.Form_B->GuardoModo_LmasR_LmenosR();
    program.Form_B->cambfre();
    const auto settings =
        takenForGranted(desktop(), PanelSettings::read(program.files, PanelLine::ScannerOffset));
    levelOffset_ = settings.value(PanelLine::ScannerOffset);
    if (unitSweeps() && Timer1.enabled) {
        // The key says "Stop" now.
        Timer1.enabled = false;
        CommandClose.caption = "Ok";
        Command3D1.caption = "&New Run";
        return;
    }
    CommandClose.caption = "Wait";
    driver.HM_Parar();
    HScroll1.value = 0;
    clearChart();
    if (unitSweeps()) {
        startSweep();
    } else {
        runOneByOne();
    }
}

void Form_BandSCanner::clearChart() {
    const ScanChannels cells = clearedCells(spacing());
    ScanWalk walk(0, Graph1.columnCount());
    scanned_.forget();
    Refused.caption = "";
    for (int i = 0; i < cells.count(); ++i) write(walk.next(), "0", {});
}

void Form_BandSCanner::runOneByOne() {
    ScanFile file;
    stop_ = false;
    // The keyboard stands on the key that ends the run, not on whatever comes next.
    CommandClose.takeFocus();
    Command3D1.enabled = false;
    const Fill fill = measureChannels(file);
    Command3D1.enabled = true;
    Command3D1.takeFocus();
    if (fill == Fill::Broken) {
        // Nothing is stored; the unit is returned when the window closes.
        driver.HM_Parar();
        CommandClose.caption = "Ok";
        return;
    }
    if (!Option_250Khz.chosen && !Option_All.chosen) store(file, measuredChannels(spacing()));
    driver.HM_Parar();
    returnUnit();
    CommandClose.caption = "Ok";
}

Form_BandSCanner::Fill Form_BandSCanner::measureChannels(ScanFile& file) {
    const RunGuard guard(program, {&CommandClose, &HScroll1}, {this});
    const ScanChannels channels = measuredChannels(spacing());
    ScanWalk walk(kStartColumn, kOneByOneColumns);
    float level = 0;
    for (int i = 0; i < channels.count(); ++i) {
        if (stop_) return Fill::Broken;
        const ScanCell cell = walk.next();
        if (cell == ScanCell{11, 1}) HScroll1.value = 9;
        if (cell == ScanCell{20, 1}) HScroll1.value = 11;
        if (driver.HM_Super(channels.tenths(i), level) != 0) {
            tellRefused(channels.tenths(i));
            return Fill::Broken;
        }
        const std::int32_t shown = toWhole(shownLevel(level) + levelOffset_);
        write(cell, shortText(shown), ScannedChannels::channel(channels.at(i)));
        file.add(shown);
    }
    return Fill::Done;
}

void Form_BandSCanner::startSweep() {
    sweepLimit_ = kBandStart + kFrameWidth;
    sweepStepKhz_ = Option_250Khz.chosen ? 250 : 100;
    askForFrame(kBandStart);
    Command3D1.caption = "Stop";
    Timer1.enabled = true;
}

void Form_BandSCanner::askForFrame(int low) {
    sweepLow_ = low;
    stop_ = false;
    driver.HM_StartEspectro(tenths(low), tenths(sweepLimit_), sweepStepKhz_);
}

void Form_BandSCanner::takeFrame() {
    if (busy_) return;
    if (driver.HM_TramaEspectroRecibida() == 0) {
        // The close key has halted the unit: without a new word no frame would ever come.
        if (stop_) askForFrame(sweepLow_);
        return;
    }
    busy_ = true;
    ScanFile file;
    drawSwept(file);
    driver.HM_Parar();
    if (sweepLimit_ >= kBandStop) {
        finishSweep(file);
    } else {
        goOnSweeping();
    }
    busy_ = false;
}

void Form_BandSCanner::drawSwept(ScanFile& file) {
    // From the start of the band each time: the driver keeps all frames of the run.
    const ScanChannels channels = sweptChannels(spacing(), sweepLimit_);
    ScanWalk walk(kStartColumn, Graph1.columnCount());
    float level = 0;
    for (int i = 0; i < channels.count(); ++i) {
        const ScanCell cell = walk.next();
        driver.HM_GetEspectro(channels.tenths(i), level);
        const std::int32_t shown = shownLevel(level);
        write(cell, shortText(shown), ScannedChannels::channel(channels.at(i)));
        file.add(shown);
    }
}

void Form_BandSCanner::goOnSweeping() {
    const int low = sweepLimit_;
    sweepLimit_ = std::min(sweepLimit_ + kFrameWidth, kBandStop);
    askForFrame(low);
    constexpr int kFirstScrolledMhz = 102;
    if (sweepLimit_ > kFirstScrolledMhz * 100)
        HScroll1.value = sweepLimit_ / 100 - kFirstScrolledMhz;
}

void Form_BandSCanner::finishSweep(const ScanFile& file) {
    Timer1.enabled = false;
    Command3D1.caption = "&New Run";
    CommandClose.caption = "Ok";
    // Whatever the choice of channels, unlike a run that is measured one by one.
    store(file, sweptChannels(spacing(), sweepLimit_));
    returnUnit();
}

}  // namespace hmonitor
