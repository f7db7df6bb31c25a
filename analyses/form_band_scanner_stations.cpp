// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <string_view>

#include "analyses/form_band_scanner.h"
#include "core/memory_block.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/station_line.h"
#include "program/tuner.h"

namespace hmonitor {

namespace {

constexpr int kHundredthsOfTenths = 10;

int tunedHundredths(const Program& program) {
    return toWhole(program.tuner->TunedFreq * kHundredthsOfTenths);
}

}  // namespace

void Form_BandSCanner::bindStations() {
    KeyByFrequency.onClick = [this] { orderBy(StationList::Order::Frequency); };
    KeyByLevel.onClick = [this] { orderBy(StationList::Order::Level); };
    KeyWhole.onClick = [this] { showWhole(!whole_); };
    KeyTune.onClick = [this] { tuneTo(chosen_); };
    Stations.onClick = [this] { chooseRow(); };
    Stations.onDoubleClick = [this] {
        chooseRow();
        tuneTo(chosen_);
    };
    Graph1.onPick = [this](std::size_t row) { pickLevel(row); };
}

void Form_BandSCanner::readPresets() {
    // The names are a convenience: without their file a scan goes on as it did.
    const auto presets = MemoryBlock::read(program.files);
    list_.name(presets ? *presets : MemoryBlock({}));
    // What the rack is tuned to is found at once.
    chosen_ = tunedHundredths(program);
}

void Form_BandSCanner::listStations() {
    list_.clear();
    bool unknown = false;
    for (const auto& [cell, channel, level] : shownLevels()) {
        if (channel.what == ScannedChannels::What::Level) {
            unknown = true;
        } else {
            list_.add(channel.hundredths, toWhole(level));
        }
    }
    ListNote.caption =
        unknown ? wordsIn(language, {"La corrida guardada no dice\nsus canales: mida de nuevo.",
                                     "The stored run does not tell\nits channels: measure again."})
                : std::string_view();
    ListNote.visible = unknown;
    showList();
}

void Form_BandSCanner::orderBy(StationList::Order order) {
    order_ = order;
    KeyByFrequency.lit = order == StationList::Order::Frequency;
    KeyByLevel.lit = order == StationList::Order::Level;
    showList();
}

void Form_BandSCanner::showList() {
    list_.sort(order_);
    Stations.list.clear();
    for (const HeardStation& station : list_.stations())
        Stations.list.add(StationList::rowText(station));
    pointAt(chosen_);
}

/// Shows which channel is chosen, in the list and in the chart.
void Form_BandSCanner::pointAt(int hundredths) {
    chosen_ = hundredths;
    Stations.list.setSelected(list_.rowOf(hundredths));
    display::Chart::Cell bar;
    for (const auto& [cell, channel, level] : shownLevels()) {
        if (channel == ScannedChannels::channel(hundredths)) bar = {cell.row, cell.column};
    }
    Graph1.chosen = bar;
    KeyTune.enabled = bar.row > 0 && isTunable(hundredths);
}

void Form_BandSCanner::chooseRow() {
    const int row = Stations.list.selected();
    if (row < 0) return;
    pointAt(list_.stations()[static_cast<std::size_t>(row)].hundredths);
    const display::Chart::Cell bar = Graph1.chosen;
    scrollTo({bar.row, bar.column});
}

/// Moves the larger view so that a bar chosen in the list is in it.
void Form_BandSCanner::scrollTo(const ScanCell& cell) {
    constexpr int kRowsInView = 10;
    if (whole_ || cell.row < 1) return;
    const int first = HScroll1.value + 1;
    if (cell.row >= first && cell.row < first + kRowsInView) return;
    HScroll1.value =
        std::clamp(cell.row - kRowsInView / 2, HScroll1.minimum.get(), HScroll1.maximum.get());
}

void Form_BandSCanner::pickLevel(std::size_t row) {
    const auto levels = shownLevels();
    if (row >= levels.size()) return;
    const int picked = levels[row].channel.hundredths;
    if (picked > 0) pointAt(picked);
    tuneTo(picked);
}

/// The rack is on it at once, or as soon as a run has given the unit back.
void Form_BandSCanner::tuneTo(int hundredths) {
    if (!isTunable(hundredths)) {
        desktop().beep();
        return;
    }
    const int row = list_.rowOf(hundredths);
    const WantedStation station{
        static_cast<double>(hundredths) / kHundredthsOfTenths,
        row < 0 ? 0 : list_.stations()[static_cast<std::size_t>(row)].memory};
    if (lease_.held()) {
        lease_.returnTo(station);
        if (run_ == Run::None) lease_.giveBack(UnitLease::Back::LeftRight);
    } else {
        program.tuner->tuneTo(station);
    }
    tellStation();
}

void Form_BandSCanner::tellStation() {
    Station.caption = stationHead(program, runAt_);
}

void Form_BandSCanner::showWhole(bool whole) {
    whole_ = whole;
    KeyWhole.lit = whole;
    // There is nothing to move.
    HScroll1.enabled = !whole;
    placeChart();
}

void Form_BandSCanner::keepScan() {
    lastScan_.clear();
    for (const auto& [cell, channel, level] : shownLevels()) {
        if (channel.what == ScannedChannels::What::Channel)
            lastScan_[channel.hundredths] = toWhole(level);
    }
}

void Form_BandSCanner::hideEarlier() {
    Graph1.clearEarlier();
    EarlierStroke.visible = false;
    EarlierWords.visible = false;
}

}  // namespace hmonitor
