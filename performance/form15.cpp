// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form15.h"

#include <string>
#include <string_view>

#include "performance/day_lists.h"
#include "performance/day_report.h"
#include "performance/form_d4a.h"
#include "performance/report_page.h"
#include "performance/station_of_log.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/page_file.h"
#include "program/rack_place.h"

namespace hmonitor {

namespace {

/// The report's font size, where the sheet is wide enough for it.
constexpr float kReportPoints = 14;

}  // namespace

Form15::Form15(Program& itsProgram)
    : ProgramForm(itsProgram, "Form15"), tables_(itsProgram.Form_D4A.peek().tables) {
    SSCommand1.onClick = [this] { close(); };
    // Without a printer there is no report and no message.
    SSCommand2.onClick = [this] { desktop().printPages(report(), 1, 1); };
    KeyPdf.onClick = [this] { savePdf(); };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form15::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    placeOverRack(*this, program);
    std::string station = stationOfLog(program, {});
    while (station.ends_with(' ')) station.pop_back();
    Station.caption = station;
    Leer();
}

void Form15::closeRequested() {
    SSCommand1.press();
}

std::string_view Form15::day() const {
    return program.Form_D4A.peek().Combo1.list.text();
}

void Form15::Leer() {
    tables_.read(program.files, day());
    for (std::size_t i = 0; i < List.size(); ++i) {
        List[i].list.clear();
        for (int hour = 0; hour < DayTables::kHours; ++hour)
            List[i].list.add(listLine(tables_, kDayLists[i], hour));
    }
}

display::PageDocument Form15::report() const {
    // The day as the window heads it, without its brackets.
    std::string_view date = SSPanel22.caption.get();
    date = date.substr(date.empty() ? 0 : 1, date.size() < 2 ? 0 : date.size() - 2);
    const auto bytes = program.files.read(std::string(day()) + ".log");
    const auto lines = dayReport(bytes ? std::string_view(*bytes) : std::string_view(), date,
                                 program.words.gBrand);
    return composeReportPage(lines, desktop().paper(), kReportPoints);
}

void Form15::savePdf() {
    savePageAsPdf(program, language, {stationOfLog(program, day()), "Report"},
                  [this] { return desktop().pdfOfPages(report(), 1, 1); });
}

void Form15::close() {
    program.Form_D4A->show();
    unload();
}

template MadeForm makeForm(Program&, Slot<Form15>&);

}  // namespace hmonitor
