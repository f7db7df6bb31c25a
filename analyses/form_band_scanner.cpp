// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_band_scanner.h"

#include <cstdint>
#include <string>
#include <string_view>

#include "analyses/form_print_band_scan.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/long_date.h"
#include "program/make_form.h"
#include "program/rack_place.h"
#include "program/refused_run.h"
#include "program/report_fault.h"
#include "program/station_line.h"
#include "program/tuner.h"
#include "program/unit_generation.h"

namespace hmonitor {

Form_BandSCanner::Form_BandSCanner(Program& itsProgram)
    : ProgramForm(itsProgram, "Form_BandSCanner") {
    for (display::Option* option : {&Option_All, &Option_Pares, &Option_Impares, &Option_250Khz})
        option->onClick = [this] { chooseOption(); };
    Command3D1.onClick = [this] { Command3D1_Click(); };
    CommandClose.onClick = [this] { CommandClose_Click(); };
    SSCommand1.onClick = [this] { openPage(); };
    HScroll1.onChange = [this] { showScrolled(); };
    Timer1.onTick = [this] { frames_.look(); };
    Graph1.tellCell = [this](int row, int column) { return tellCell(row, column); };
    Graph1.reading = [this] { return tellStrongest(); };
    Graph1.numbers = [this] { return numbersShown(); };
    bindStations();
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form_BandSCanner::onLoad() {
    tellIdleInDemo(Command3D1);
    hardwareVersion_ = 0;
    levelOffset_ = 0;
    sweepLimit_ = 0;
    sweepStepKhz_ = 0;
    run_ = Run::None;

    placeOverRack(*this, program);
    // The page may still show an older scan with another choice of channels.
    twin().take(Graph1);
    program.Form_PrintBandScan->showOption(option());
    const auto stored = require(desktop(), ScanFile::read(program.files));
    showStored(stored);
    program.Form_PrintBandScan->legend.hideUpper();
    driver.HM_Parar();
    driver.HM_getHardwareVersion(hardwareVersion_);
    nameStored(stored);
    keepScan();
    readPresets();
    listStations();
    runAt_ = writtenAt(program, ScanFile::kFileName);
    tellStation();
    program.tuner->retune();
}

void Form_BandSCanner::onUnload() {
    lease_.close(UnitLease::Back::LeftRight);
}

void Form_BandSCanner::showStored(const ScanFile& file) {
    // Stored levels go to the cells of the odd channels, whichever choice wrote the file.
    const ScanOption& odd = scanOption(ScanSpacing::Odd);
    Graph1.columnCount(odd.columns);
    twin().columnCount(odd.columns);
    ScanWalk walk(odd.startColumn, odd.columns);
    scanned_.forget();
    for (const std::string& level : file.lines())
        write(walk.next(), level, {ScannedChannels::What::Level});
}

/// The channels of the stored levels, where they can be known.
void Form_BandSCanner::nameStored(const ScanFile& file) {
    std::optional<ScanChannels> channels =
        channelsOfLines(file.lineCount(), givesFrames(hardwareVersion_));
    if (!storedBytes_.empty() && file.bytes() == storedBytes_) channels = storedChannels_;
    if (!channels) return;
    const ScanOption& odd = scanOption(ScanSpacing::Odd);
    ScanWalk walk(odd.startColumn, odd.columns);
    const auto shown = static_cast<int>(file.lines().size());
    for (int i = 0; i < shown; ++i)
        scanned_.put(walk.next(), ScannedChannels::channel(channels->at(i)));
}

void Form_BandSCanner::store(const ScanFile& file, const ScanChannels& channels) {
    warn(desktop(), file.write(program.files));
    storedBytes_ = file.bytes();
    storedChannels_ = channels;
}

ScanSpacing Form_BandSCanner::spacing() const {
    if (Option_All.chosen) return ScanSpacing::All;
    if (Option_Pares.chosen) return ScanSpacing::Even;
    if (Option_250Khz.chosen) return ScanSpacing::Quarter;
    return ScanSpacing::Odd;
}

const ScanOption& Form_BandSCanner::option() const {
    return scanOption(spacing());
}

display::Chart& Form_BandSCanner::twin() {
    return program.Form_PrintBandScan->Graph1;
}

void Form_BandSCanner::write(const ScanCell& cell, std::string_view text,
                             const ScannedChannels::Cell& from) {
    scanned_.put(cell, from);
    for (display::Chart* chart : {&Graph1, &twin()}) {
        chart->row = cell.row;
        chart->column = cell.column;
        chart->data(text);
    }
}

std::int32_t Form_BandSCanner::shownLevel(float level) const {
    return floorWhole(level + static_cast<float>(valueOf(StationState.DbCorrection10) / 10));
}

std::string Form_BandSCanner::channelText(const ScannedChannels::Cell& cell) const {
    using What = ScannedChannels::What;
    if (cell.what == What::Channel) {
        const bool tenth = cell.hundredths % 10 == 0;
        return mask(tenth ? "0.0" : "0.00", cell.hundredths / 100.).append(" MHz").str();
    }
    return std::string(cell.what == What::Level
                           ? wordsIn(language, {"canal desconocido", "channel not known"})
                           : wordsIn(language, {"sin medir", "not measured"}));
}

std::string Form_BandSCanner::tellCell(int row, int column) const {
    const ScannedChannels::Cell cell = scanned_.at({row, column});
    const std::string channel = channelText(cell);
    if (cell.what == ScannedChannels::What::Nothing) return channel;
    return channel + ": " + std::string(Graph1.dataAt(row, column)) + " dB";
}

std::vector<Form_BandSCanner::ShownLevel> Form_BandSCanner::shownLevels() const {
    std::vector<ShownLevel> levels;
    for (int row = 1; row <= Graph1.rowCount(); ++row) {
        for (int column = 1; column <= Graph1.columnCount(); ++column) {
            const ScannedChannels::Cell channel = scanned_.at({row, column});
            if (channel.what == ScannedChannels::What::Nothing) continue;
            levels.push_back({{row, column}, channel, valueOf(Graph1.dataAt(row, column))});
        }
    }
    return levels;
}

display::NumberTable Form_BandSCanner::numbersShown() const {
    constexpr double kHundredths = 100;
    display::NumberTable table =
        tableOfStation(program, wordsIn(language, {"Barrido de banda", "Band Scanner"}));
    table.columns = {{std::string(wordsIn(language, {"Frecuencia", "Frequency"})), "MHz"},
                     {std::string(wordsIn(language, {"Nivel", "Level"})), "dBuV"}};
    for (const auto& [cell, channel, level] : shownLevels()) {
        table.spots.push_back(
            {table.rows.size(), 1, Graph1.barMiddle(cell.row, cell.column), level});
        // A stored level whose channel is not known has no frequency.
        const bool known = channel.what == ScannedChannels::What::Channel;
        table.rows.push_back({known ? shortText(channel.hundredths / kHundredths).str() : "",
                              shortText(level).str()});
    }
    return table;
}

std::string Form_BandSCanner::tellStrongest() const {
    ScanCell strongest;
    double highest = -1;
    for (const auto& [cell, channel, level] : shownLevels()) {
        // The levels of a file that was found may not tell where they were measured.
        const bool known = channel.what == ScannedChannels::What::Channel;
        if (known && level > highest) highest = level, strongest = cell;
    }
    if (highest < 0) {
        return std::string(
            wordsIn(language, {"sin barrido desde el inicio", "no scan since the start"}));
    }
    return std::string(wordsIn(language, {"El más fuerte: ", "The strongest: "})) +
           tellCell(strongest.row, strongest.column);
}

void Form_BandSCanner::showOption(const ScanOption& chosen) {
    for (int row = 1; row <= kScanRows; ++row) {
        Graph1.row = row;
        Graph1.rowLabel(SmallText("         ").append(rowMhz(chosen, row)));
        Graph1.rowLabelColumn(1);
    }
    // Only in row 1: the band begins in the middle of it.
    Graph1.row = 1;
    Graph1.rowLabel(chosen.windowRow1);
    Graph1.rowLabelColumn(chosen.row1Column);
    Graph1.columnCount(chosen.columns);
    legend.show(chosen);
}

void Form_BandSCanner::chooseOption() {
    Refused.caption = "";
    const ScanOption& chosen = option();
    showOption(chosen);
    program.Form_PrintBandScan->showOption(chosen);
    beginRow(optionChannels(chosen.spacing), chosen.startColumn, chosen.columns);
    hideEarlier();
    runAt_ = desktop().today();
    tellStation();
    if (givesFrames(hardwareVersion_)) {
        readSwept(driver, *this);
        listStations();
    } else {
        fillOneByOne();
    }
}

void Form_BandSCanner::tellRefused(float tenths) {
    Refused.caption = refusedRun(language, tenths);
}

void Form_BandSCanner::fillOneByOne() {
    lease_.take();
    run_ = Run::Fill;
    Command3D1.enabled = false;
    points_.measure(*this);
    Command3D1.enabled = true;
    const bool closes = run_ == Run::FillThenClose;
    run_ = Run::None;
    listStations();
    if (closes) unload();
}

void Form_BandSCanner::closeRequested() {
    CommandClose.press();
}

void Form_BandSCanner::CommandClose_Click() {
    switch (run_) {
        case Run::None:
            unload();
            break;
        case Run::Points:
            driver.HM_Parar();
            points_.stop();
            break;
        case Run::Sweep:
            // The run goes on; its own key stops it.
            frames_.halt();
            break;
        case Run::Fill:
        case Run::FillThenClose:
            // The window is closed when the measurement that holds the thread returns.
            run_ = Run::FillThenClose;
            points_.stop();
            break;
    }
}

void Form_BandSCanner::openPage() {
    program.Form_PrintBandScan->Label2.caption = longDate(desktop());
    program.Form_PrintBandScan->open();
}

void Form_BandSCanner::showScrolled() {
    if (whole_) return;
    constexpr float kRowWidth = 920;
    constexpr float kMarginLeft = 280;
    Graph1.left = -kRowWidth * static_cast<float>(HScroll1.value) - kMarginLeft;
}

template MadeForm makeForm(Program&, Slot<Form_BandSCanner>&);

}  // namespace hmonitor
