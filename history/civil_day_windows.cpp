// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows version of civil_day_posix.cpp. There a zone has no short name but its distance.
#include <time.h>

#include <cstdlib>

#include "core/numbers.h"
#include "history/civil_day.h"

namespace history {

namespace {

::tm localTime(std::int64_t t) {
    const ::__time64_t time = t;
    ::tm parts = {};
    ::_localtime64_s(&parts, &time);
    return parts;
}

}  // namespace

CivilDay CivilDay::of(std::int64_t t) {
    const ::tm parts = localTime(t);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

std::string zoneName(std::int64_t t) {
    const int minutes = zoneOffset(t) / 60;
    std::string name(minutes < 0 ? "-" : "+");
    name += hmonitor::mask("00", std::abs(minutes) / 60).view();
    if (minutes % 60 != 0) name += hmonitor::mask("00", std::abs(minutes) % 60).view();
    return name;
}

}  // namespace history
