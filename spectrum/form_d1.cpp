// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_d1.h"

#include <string_view>

#include "core/numbers.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/rack_place.h"
#include "program/refused_run.h"
#include "program/report_fault.h"
#include "program/station_line.h"
#include "program/tuner.h"
#include "spectrum/channel_graph.h"
#include "spectrum/channel_spectrum_file.h"
#include "spectrum/form6.h"
#include "spectrum/form_d1a.h"
#include "spectrum/form_new_spectro.h"
#include "spectrum/page_line.h"

namespace hmonitor {

Form_D1::Form_D1(Program& itsProgram) : ProgramForm(itsProgram, "Form_D1") {
    Command3D1.onClick = [this] {
        hide();
        program.Form_NewSpectro->show();
    };
    Command3D2.onClick = [this] {
        if (!running_) unload();
    };
    SSCommand1.onClick = [this] { openPage(); };
    SSCommand2.onClick = [this] { openBandwidth(); };
    Picture1.numbers = [this] { return shown_.tableOn(Picture1.drawing, program, language); };
    // Its own words are the numbers: nothing is to be marked.
    Picture2.numbers = [this] { return shown_.table(program, language); };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form_D1::onLoad() {
    running_ = false;
    awaitsRack_ = false;
    shown_ = {};
    language = panelLanguage(program.desktop.userLanguageId());
    placeBesideRack(*this, program);
    showStored();
}

void Form_D1::showStored() {
    const double frequency = program.tuner->TunedFreq;
    const auto stored = ChannelSpectrum::read(program.files, frequency);
    Station.caption =
        stationHead(program, writtenAt(program, ChannelSpectrum::fileName(frequency)));
    if (!stored || stored->points == 0) {
        channelGraph(Picture1.drawing, kUsualColumns, kUsualStepKhz).GraphInit();
        if (!stored && stored.fault().kind != FileFaultKind::Missing) {
            warn(program.desktop, stored.fault());
        }
        return;
    }
    Class1 graph = channelGraph(Picture1.drawing, stored->points, stored->stepKhz());
    graph.GraphInit();
    EscalaClean(stored->points, stored->stepKhz());
    for (int i = 1; i <= static_cast<int>(stored->values.size()); ++i) {
        printValue(i, stored->values[static_cast<std::size_t>(i - 1)]);
        Int16 below = stored->value(i);
        graph.GraphLine(i, below);
    }
}

void Form_D1::EscalaClean(Int16 columns, Int16 step) {
    display::Drawing& table = Picture2.drawing;
    const int centre = columns / 2;
    shown_.begin(columns, step);
    table.foreground = display::kWhite;
    table.box(0, 0, table.outerWidth(), table.outerHeight());
    table.foreground = display::kRed;
    table.textX = 1;
    table.textY = 0;
    table.print("Values:");
    table.foreground = display::kBlack;
    for (int i = 0; i < columns; ++i) {
        if (i == centre) {
            table.foreground = display::kRed;
            printRow(i + 1, 1, "  F0");
            table.foreground = display::kBlack;
        } else {
            const Int16 offset = (i - centre) * step;
            printRow(i + 1, 1, longText(int{offset}).append(':'));
        }
    }
}

void Form_D1::printValue(int i, std::string_view value) {
    constexpr float kBesideOffsets = 500;
    shown_.put(i, value);
    // The values are dB below the carrier.
    const bool zero = valueOf(value) == 0;
    printRow(i, kBesideOffsets, zero ? SmallText(value) : SmallText("-").append(value));
}

void Form_D1::printRow(int i, float x, std::string_view text) {
    constexpr int kFirst = 180;
    constexpr int kPitch = 175;
    Picture2.drawing.textX = x;
    Picture2.drawing.textY = static_cast<float>(kFirst + kPitch * i);
    Picture2.drawing.print(text);
}

void Form_D1::openBandwidth() {
    // It stops the unit, and at the start the rack stays usable beside this window.
    program.disableRack();
    lease.letGo();
    program.FormD1a->left = left;
    program.FormD1a->top = top;
    program.FormD1a->show();
    hide();
}

void Form_D1::openPage() {
    hmonitor::Form6& page = *program.Form6;
    page.Label2.caption = spectrumPageLine(StationState, desktop());
    page.Picture1.drawing.take(Picture1.drawing);
    page.Picture1B.drawing.take(Picture2.drawing);
    page.Picture1.numbers = [table = Picture1.numbers()] { return table; };
    page.Picture1B.numbers = [table = Picture2.numbers()] { return table; };
    page.Picture1.left = Picture1.left.get();
    page.Picture1.width = width.get();
    page.open();
}

void Form_D1::tellRefused(float tenths) {
    Refused.caption = refusedRun(language, tenths);
}

void Form_D1::beginRun() {
    Refused.caption = "";
    Station.caption = stationHead(program, desktop().today());
    running_ = true;
    Command3D2.caption = "Wait";
}

void Form_D1::endRun(RunEnd end) {
    running_ = false;
    Command3D2.caption = end == RunEnd::Whole ? "Ok" : "&Cancel";
}

void Form_D1::rackStands() {
    if (!awaitsRack_) return;
    awaitsRack_ = false;
    placeBesideRack(*this, program);
    if (hidesNothingOfTheRack(*this, program)) show();
}

void Form_D1::onUnload() {
    lease.close(UnitLease::Back::LeftRight);
}

template MadeForm makeForm(Program&, Slot<Form_D1>&);

}  // namespace hmonitor
