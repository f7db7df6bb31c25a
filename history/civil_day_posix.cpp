// SPDX-License-Identifier: GPL-3.0-or-later
// Of civil_day.cpp what asks the system for its zone.
#include <time.h>

#include "history/civil_day.h"

namespace history {

namespace {

::tm localTime(std::int64_t t) {
    const auto time = static_cast<::time_t>(t);
    ::tm parts = {};
    ::localtime_r(&time, &parts);
    return parts;
}

}  // namespace

CivilDay CivilDay::of(std::int64_t t) {
    const ::tm parts = localTime(t);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

std::string zoneName(std::int64_t t) {
    const char* name = localTime(t).tm_zone;
    return name ? name : "";
}

}  // namespace history
