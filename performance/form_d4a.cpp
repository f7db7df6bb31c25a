// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form_d4a.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "performance/day_lists.h"
#include "performance/day_page.h"
#include "performance/day_series.h"
#include "performance/form15.h"
#include "performance/form4.h"
#include "performance/hour_marks.h"
#include "performance/log_files.h"
#include "performance/station_of_log.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/rack_place.h"

namespace hmonitor {

namespace {

constexpr std::size_t kUpperCharts = 2;
constexpr float kNudge = 120;
/// Frequencies from here on have four digits; the others have a nought before them in a file's
/// name.
constexpr double kFourDigits = 1000;

/// What each chart shows, column by column.
struct ChartWords {
    struct Series {
        display::Words words;
        const char* unit = "";
    };
    std::array<Series, 2> series;
};
constexpr std::array<ChartWords, 6> kChartWords = {{
    {{{{{"Modulación", "Modulation"}, "%"}, {}}}},
    {{{{{"Potencia RF", "RF Power"}}, {}}}},
    {{{{{"Nivel izquierdo", "Left Level"}, "dB"}, {{"Nivel derecho", "Right Level"}, "dB"}}}},
    {{{{{"Fase estéreo", "Stereo Phase"}, "deg"}, {}}}},
    {{{{{"Picos de sobremodulación", "Overmodulation Peaks"}, "/min"}, {}}}},
    {{{{{"Fase invertida", "Inverted Phase"}}, {{"Silencios de 3 s", "3 s Silences"}}}}},
}};

/// The results of the loaded memory: its frequency stands in the name as it stands in the memory.
std::string resultsName(std::string_view memoryFreq) {
    std::string name = valueOf(memoryFreq) < kFourDigits ? "0" : "";
    return name.append(memoryFreq).append(".dat");
}

}  // namespace

Form_D4A::Form_D4A(Program& itsProgram) : ProgramForm(itsProgram, "Form_D4A") {
    Combo1.onClick = [this] { Leer(); };
    HScroll1.onChange = [this] { scrollUpper(); };
    HScroll2.onChange = [this] { scrollLower(); };
    SSCommand1.onClick = [this] { program.Form4->show(); };
    SSCommand2.onClick = [this] { showText(); };
    SSCommand3.onClick = [this] { close(); };
    for (display::Chart& chart : Graph) {
        chart.tellCell = [this, &chart](int row, int column) {
            return tellCell(chart, row, column);
        };
    }
    for (std::size_t i = 0; i < kCharts; ++i) Graph[i].numbers = [this, i] { return numbersOf(i); };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form_D4A::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    for (Side* side : {&sideOfPicture1_, &sideOfPicture4_, &sideOfPicture5_, &sideOfPicture2_})
        *side = "";
    placeOverRack(*this, program);
    Label_Station.caption = StationState.StationName.str();
    Label_Mhz.caption = mask("#0.00", valueOf(StationState.MemoryFreq) / 10).append(" MHz");
    listDays();
    Reset();
    // The last day; choosing it reads it.
    Combo1.select(static_cast<int>(Combo1.list.rows().size()) - 1);
}

void Form_D4A::onUnload() {
    // The page belongs to the window of the day.
    program.Form4.peek().unload();
}

void Form_D4A::closeRequested() {
    SSCommand3.press();
}

void Form_D4A::listDays() {
    const auto names = logFiles(program.files);
    for (const std::string& name : names) File1.list.add(name);
    for (const std::string& day : logDays(names)) Combo1.list.add(day);
}

void Form_D4A::Reset() {
    // The row under the pointer is written before the pointer moves: from its first place on, the
    // first row is written twice and the last one not at all.
    for (int i = 1; i <= DayTables::kHours; ++i) {
        for (display::Chart& chart : Graph) {
            chart.data("0");
            chart.row = i;
        }
    }
    for (const std::size_t twoColumns : {2u, 5u}) {
        display::Chart& chart = Graph[twoColumns];
        for (const int column : {2, 1}) chart.column = column;
        for (int i = 1; i <= DayTables::kHours; ++i) chart.row = i;
    }
}

void Form_D4A::Leer() {
    if (Combo1.list.text().empty()) return;
    Reset();
    tables.read(program.files, Combo1.list.text());
    plot();
    drawPage();
}

void Form_D4A::plot() {
    for (const DaySeries& series : kDaySeries) {
        display::Chart& chart = Graph[static_cast<std::size_t>(series.chart - 1)];
        if (series.column > 0) chart.column = series.column;
        for (int hour = 0; hour < DayTables::kHours; ++hour) {
            chart.row = hour + 1;
            chart.data(shortText(valueOf(tables.field(hour, series.field))));
        }
    }
}

void Form_D4A::drawPage() {
    if (Combo1.list.text().empty()) return;
    hmonitor::Form4& sheet = program.Form4.peek();
    if (!sheet.loaded()) {
        // Its load takes the day's page over.
        sheet.load();
        return;
    }
    DayPage page;
    page.stationName = StationState.StationName.str();
    page.memoryFreq = StationState.MemoryFreq.str();
    page.day = Combo1.list.text();
    page.logo = sheet.Picture1.picture.get();
    page.logoWidth = sheet.Picture1.width;
    page.logoHeight = sheet.Picture1.height;
    page.results = ResultsFile::readNamed(program.files, resultsName(page.memoryFreq));
    page.comment = sheet.Text1.text.get();
    sheet.ViewPro1.show(composeDayPage(page, tables));
    sheet.ViewPro1.zoom = sheet.hscZoom.value;
}

void Form_D4A::scrollUpper() {
    const int value = HScroll1.value;
    moveCharts(0, kUpperCharts, value == 0 ? -240.f : static_cast<float>(-1110 * value - 2250));
    nudge(Picture1, sideOfPicture1_);
    nudge(Picture4, sideOfPicture4_);
}

void Form_D4A::scrollLower() {
    moveCharts(kUpperCharts, kCharts, static_cast<float>(-300 * HScroll2.value - 240));
    nudge(Picture5, sideOfPicture5_);
    nudge(Picture2, sideOfPicture2_);
}

void Form_D4A::moveCharts(std::size_t first, std::size_t last, float edge) {
    for (std::size_t i = first; i < last; ++i) {
        const float moved = edge - Graph[i].left;
        Graph[i].left = edge;
        for (const HourMark& mark : kHourMarks) {
            if (mark.chart != static_cast<int>(i) + 1) continue;
            display::Label& label = Label[mark.label];
            label.left = label.left + moved;
        }
    }
}

std::string Form_D4A::tellCell(const display::Chart& chart, int row, int column) const {
    const int hour = row - 1;
    // The charts show a 0 there, which could be a figure.
    const bool absent = !Combo1.list.text().empty() && tables.hourLine(hour).empty();
    return hourLabel(hour) + " hs: " +
           (absent ? std::string(wordsIn(language, {"sin datos", "no data"}))
                   : std::string(chart.dataAt(row, column)));
}

display::NumberTable Form_D4A::numbersOf(std::size_t chart) const {
    display::NumberTable table;
    table.title = wordsIn(language, kChartWords[chart].series[0].words);
    table.station = stationOfLog(program, Combo1.list.text());
    table.columns = {{std::string(wordsIn(language, {"Hora", "Hour"})), "h"}};
    for (const ChartWords::Series& series : kChartWords[chart].series) {
        if (*series.words.english == 0) continue;
        table.columns.push_back({std::string(wordsIn(language, series.words)), series.unit});
    }
    if (Combo1.list.text().empty()) return table;
    for (int hour = 0; hour < DayTables::kHours; ++hour) {
        const bool absent = tables.hourLine(hour).empty();
        std::vector<std::string> row{wholeText(hour).str()};
        for (int column = 1; column < static_cast<int>(table.columns.size()); ++column) {
            const display::Chart& shown = Graph[chart];
            row.emplace_back(absent ? std::string_view() : shown.dataAt(hour + 1, column));
            table.spots.push_back({table.rows.size(), static_cast<std::size_t>(column),
                                   shown.barMiddle(hour + 1, column), valueOf(row.back())});
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

void Form_D4A::nudge(display::Picture& background, Side& side) {
    const bool toTheLeft = side.empty();
    background.left = background.left + (toTheLeft ? -kNudge : kNudge);
    side = toTheLeft ? "1" : "";
}

void Form_D4A::showText() {
    if (Combo1.list.text().empty()) return;
    hide();
    program.Form15->show();
    program.Form15->SSPanel22.caption = "(" + std::string(Combo1.list.text()) + ")";
}

void Form_D4A::close() {
    program.enableRack();
    unload();
}

template MadeForm makeForm(Program&, Slot<Form_D4A>&);

}  // namespace hmonitor
