// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/station_line.h"

#include "core/numbers.h"
#include "program/tuner.h"

namespace hmonitor {

namespace {

/// The year first, so that file names sort by date.
std::string isoDay(const display::Date& date) {
    return mask("0000", date.year).str() + "-" + mask("00", date.month).str() + "-" +
           mask("00", date.day).str();
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string stationLine(std::string_view name, double mhz, std::string_view day) {
    std::string line(trimmed(name));
    if (!line.empty()) line += ' ';
    line += shortText(mhz).view();
    line += " MHz ";
    return line.append(day);
}

std::string stationLine(const Program& program) {
    constexpr double kTenths = 10;
    const double tuned = program.tuner ? program.tuner->TunedFreq : Tuner::kLowestFrequency;
    return stationLine(program.StationState.RadioName, tuned / kTenths,
                       isoDay(program.desktop.today()));
}

display::NumberTable tableOfStation(const Program& program, std::string_view title) {
    display::NumberTable table;
    table.title = title;
    table.station = stationLine(program);
    return table;
}

}  // namespace hmonitor
