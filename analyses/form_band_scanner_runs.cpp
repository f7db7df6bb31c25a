// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>

#include "analyses/form_band_scanner.h"
#include "core/numbers.h"
#include "core/panel_settings.h"
#include "program/report_fault.h"
#include "program/tuner.h"
#include "program/unit_generation.h"

namespace hmonitor {

namespace {

/// A run on a unit that is measured point by point wraps after column 5 whatever the chart has:
/// with all channels or 250 kHz its cells do not match their legend, and its levels are not stored.
constexpr int kOneByOneColumns = 5;
/// Every run begins after column 2, where the odd channels begin: with all channels 87.5 MHz is
/// drawn under ".2".
constexpr int kStartColumn = 2;

constexpr int kFrameWidth = 200;  ///< hundredths of a MHz

float tenths(int hundredths) {
    return static_cast<float>(hundredths) / 10.f;
}

}  // namespace

void Form_BandSCanner::closeKeySays(CloseKey what) {
    CommandClose.caption = what == CloseKey::Wait ? "Wait" : "Ok";
    if (what == CloseKey::Ok) {
        CommandClose.tip = kCloseTip;
    } else if (givesFrames(hardwareVersion_)) {
        CommandClose.tip = {"Se está midiendo: \"Stop\" detiene el barrido",
                            "It is measuring: \"Stop\" stops the sweep"};
    } else {
        CommandClose.tip = {"Detiene la corrida; lo medido no se guarda",
                            "Stops the run; what was measured is not stored"};
    }
}

void Form_BandSCanner::Command3D1_Click() {
    if (inDemoMode()) return;
    driver.HM_Parar();
    if (hardwareVersion_ == kPointsAgain) SSCommand1.colour = display::kRed;
    lease_.take();
    lease_.tuneFor(AudioMode::SumDifference);
    const auto settings =
        require(desktop(), PanelSettings::read(program.files, PanelLine::ScannerOffset));
    levelOffset_ = settings.value(PanelLine::ScannerOffset);
    if (run_ == Run::Sweep) {
        // The key says "Stop" now.
        frames_.stop();
        endRun();
        return;
    }
    closeKeySays(CloseKey::Wait);
    driver.HM_Parar();
    HScroll1.value = 0;
    runAt_ = desktop().today();
    tellStation();
    clearChart();
    if (givesFrames(hardwareVersion_)) {
        startSweep();
    } else {
        runOneByOne();
    }
}

void Form_BandSCanner::endRun() {
    run_ = Run::None;
    closeKeySays(CloseKey::Ok);
    Command3D1.caption = "&New Run";
    listStations();
}

void Form_BandSCanner::clearChart() {
    const ScanChannels cells = clearedCells(spacing());
    ScanWalk walk(0, Graph1.columnCount());
    scanned_.forget();
    Refused.caption = "";
    for (int i = 0; i < cells.count(); ++i) write(walk.next(), "0", {});
    listStations();
}

/// The levels of the last run, behind the cells in which this one will put the same channels.
void Form_BandSCanner::showEarlier(const ScanChannels& channels, int columns) {
    hideEarlier();
    ScanWalk walk(kStartColumn, columns);
    for (int i = 0; i < channels.count(); ++i) {
        const ScanCell cell = walk.next();
        const auto level = lastScan_.find(channels.at(i));
        if (level == lastScan_.end()) continue;
        Graph1.earlier(cell.row, cell.column, level->second);
        EarlierStroke.visible = true;
        EarlierWords.visible = true;
    }
}

void Form_BandSCanner::beginRow(const ScanChannels& channels, int startColumn, int columns) {
    channels_ = channels;
    walk_ = ScanWalk(startColumn, columns);
    file_ = {};
}

float Form_BandSCanner::before(int, float lastLevel) {
    cell_ = walk_.next();
    if (run_ == Run::Points && cell_ == ScanCell{11, 1}) HScroll1.value = 9;
    if (run_ == Run::Points && cell_ == ScanCell{20, 1}) HScroll1.value = 11;
    if (run_ == Run::Points && cell_.column == 1) listStations();
    return lastLevel;
}

void Form_BandSCanner::take(int index, float level) {
    // The offset applies to runs on units that are measured point by point.
    const double offset = run_ == Run::Points ? levelOffset_ : 0;
    const std::int32_t shown = toWhole(shownLevel(level) + offset);
    write(cell_, shortText(shown), ScannedChannels::channel(channels_.at(index)));
    file_.add(shown);
}

void Form_BandSCanner::refused(int index) {
    tellRefused(frequency(index));
}

void Form_BandSCanner::runOneByOne() {
    run_ = Run::Points;
    // Keeps the focus on the key that ends the run.
    CommandClose.takeFocus();
    Command3D1.enabled = false;
    beginRow(measuredChannels(spacing()), kStartColumn, kOneByOneColumns);
    showEarlier(channels_, kOneByOneColumns);
    const PointRun::End end = points_.measure(*this);
    Command3D1.enabled = true;
    Command3D1.takeFocus();
    const bool done = end == PointRun::End::Done;
    // A run that broke off is not stored; the unit is returned when the window is closed.
    if (done && !Option_250Khz.chosen && !Option_All.chosen) store(file_, channels_);
    if (done) keepScan();
    driver.HM_Parar();
    if (done) lease_.giveBack(UnitLease::Back::LeftRight);
    tellStation();
    endRun();
}

void Form_BandSCanner::startSweep() {
    run_ = Run::Sweep;
    Command3D1.caption = "Stop";
    sweepLimit_ = kBandStart + kFrameWidth;
    sweepStepKhz_ = Option_250Khz.chosen ? 250 : 100;
    showEarlier(sweptChannels(spacing(), kBandStop), Graph1.columnCount());
    frames_.start(tenths(kBandStart), tenths(sweepLimit_), sweepStepKhz_);
}

void Form_BandSCanner::roundBegins() {
    // Each time from the start of the band: the driver keeps all frames of the run.
    beginRow(sweptChannels(spacing(), sweepLimit_), kStartColumn, Graph1.columnCount());
}

void Form_BandSCanner::roundEnds() {
    driver.HM_Parar();
    if (sweepLimit_ < kBandStop) {
        listStations();
        goOnSweeping();
        return;
    }
    frames_.stop();
    keepScan();
    endRun();
    // For every choice of channels, unlike a run on a unit that is measured point by point.
    store(file_, channels_);
    lease_.giveBack(UnitLease::Back::LeftRight);
    tellStation();
}

void Form_BandSCanner::goOnSweeping() {
    const int low = sweepLimit_;
    sweepLimit_ = std::min(sweepLimit_ + kFrameWidth, kBandStop);
    frames_.ask(tenths(low), tenths(sweepLimit_), sweepStepKhz_);
    constexpr int kFirstScrolledMhz = 102;
    if (sweepLimit_ > kFirstScrolledMhz * 100)
        HScroll1.value = sweepLimit_ / 100 - kFirstScrolledMhz;
}

}  // namespace hmonitor
