// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/session_date.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/numbers.h"

namespace hmonitor {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr int kSecondsOfDay = 86400;
constexpr sys_days kOrigin = year_month_day(year(1899), month(12), day(30));
constexpr double kEarliest = -657434;      // 1 January 100
constexpr double kLatest = 2958465.99999;  // 31 December 9999, its last second

}  // namespace

double serialDate(const display::Date& date) {
    const sys_days at = year_month_day(year(date.year), month(static_cast<unsigned>(date.month)),
                                       day(static_cast<unsigned>(date.day)));
    const double whole = static_cast<double>((at - kOrigin).count());
    const double seconds = (date.hour * 60 + date.minute) * 60 + date.second;
    // Before the origin the fraction is still the time of day: it is subtracted.
    return whole < 0 ? whole - seconds / kSecondsOfDay : whole + seconds / kSecondsOfDay;
}

display::Date dateOfSerial(double serial) {
    const double held = std::clamp(serial, kEarliest, kLatest);
    double whole = std::trunc(held);
    int seconds = toWhole(std::fabs(held - whole) * kSecondsOfDay);
    if (seconds == kSecondsOfDay) {
        seconds = 0;
        whole += 1;
    }
    const year_month_day date(kOrigin + days(toWhole(whole)));
    display::Date told;
    told.year = static_cast<int>(date.year());
    told.month = static_cast<int>(static_cast<unsigned>(date.month()));
    told.day = static_cast<int>(static_cast<unsigned>(date.day()));
    told.weekday = static_cast<int>(std::chrono::weekday(sys_days(date)).c_encoding());
    told.hour = seconds / 3600;
    told.minute = seconds / 60 % 60;
    told.second = seconds % 60;
    return told;
}

std::string createdText(const display::Desktop& desktop, double created) {
    const display::Date date = dateOfSerial(created);
    return mask("00", date.day).str() + "/" + desktop.shortMonthName(date.month - 1) + "/" +
           mask("0000", date.year).str() + " - " + mask("00", date.hour).str() + ":" +
           mask("00", date.minute).str() + " Hs";
}

}  // namespace hmonitor
