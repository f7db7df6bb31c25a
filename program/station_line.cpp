// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/station_line.h"

#include <chrono>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/numbers.h"
#include "core/zone_offset.h"
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

std::string stationHead(const Program& program, const std::optional<display::Date>& run) {
    constexpr double kTenths = 10;
    const double tuned = program.tuner ? program.tuner->TunedFreq : Tuner::kLowestFrequency;
    std::string head(trimmed(program.StationState.RadioName));
    if (!head.empty()) head += ' ';
    head.append(shortText(tuned / kTenths).view()).append(" MHz");
    if (!run) return head;
    return head.append(" · ").append(isoDay(*run)) + " " + mask("00", run->hour).str() + ":" +
           mask("00", run->minute).str();
}

std::optional<display::Date> writtenAt(const Program& program, std::string_view fileName) {
    using namespace std::chrono;
    const auto found = program.files.find(fileName);
    if (!found) return std::nullopt;
    std::error_code failed;
    const auto written = std::filesystem::last_write_time(program.files.folder() / *found, failed);
    if (failed) return std::nullopt;
    const auto utc = floor<seconds>(file_clock::to_sys(written));
    // The clock may have been changed for summer or winter since.
    const auto local = utc + seconds(zoneOffset(utc.time_since_epoch().count()));
    const auto day = floor<days>(local);
    const year_month_day date(day);
    const hh_mm_ss time(local - day);
    return display::Date{int{date.year()},
                         static_cast<int>(unsigned{date.month()}),
                         static_cast<int>(unsigned{date.day()}),
                         static_cast<int>(weekday(day).c_encoding()),
                         static_cast<int>(time.hours().count()),
                         static_cast<int>(time.minutes().count()),
                         static_cast<int>(time.seconds().count())};
}

display::NumberTable tableOfStation(const Program& program, std::string_view title) {
    display::NumberTable table;
    table.title = title;
    table.station = stationLine(program);
    return table;
}

}  // namespace hmonitor
