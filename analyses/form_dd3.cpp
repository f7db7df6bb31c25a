// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_dd3.h"

#include <optional>

#include "analyses/form7.h"
#include "analyses/response_curve.h"
#include "core/numbers.h"
#include "program/language.h"
#include "program/long_date.h"
#include "program/make_form.h"
#include "program/rack_place.h"
#include "program/station_line.h"

namespace hmonitor {

Form_Dd3::Form_Dd3(Program& itsProgram) : ProgramForm(itsProgram, "Form_Dd3") {
    Command3D2.onClick = [this] { close(); };
    SSCommand1.onClick = [this] { openPage(); };
    Graph1.tellCell = [this](int row, int) { return ResponseCurve::tell(Graph1, row); };
    Graph1.reading = [this] { return ResponseCurve::tellAll(Graph1); };
    Graph1.numbers = [this] { return ResponseCurve::numbers(program, Graph1); };
    bindHandle(Panel3D1.onMouseDown, Panel3D1.onMouseMove, {this});
}

void Form_Dd3::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
}

void Form_Dd3::activated() {
    // Loaded by the first tuning, before the rack has its position.
    if (!placed_) placeOverRack(*this, program);
    placed_ = true;
    // Curves come with a tuning, before the station has its name.
    tellStation();
}

void Form_Dd3::measuredAt(std::optional<display::Date> run) {
    run_ = run;
    tellStation();
}

void Form_Dd3::tellStation() {
    Station.caption = stationHead(program, run_);
}

void Form_Dd3::closeRequested() {
    Command3D2.press();
}

void Form_Dd3::close() {
    program.enableRack();
    hide();
}

void Form_Dd3::openPage() {
    program.Form7->Label2.caption = StationState.StationName.str() + " " +
                                    longText(valueOf(StationState.MemoryFreq) / 10).str() +
                                    " mhz  " + longDate(desktop());
    program.Form7->open();
}

template MadeForm makeForm(Program&, Slot<Form_Dd3>&);

}  // namespace hmonitor
