// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/local_time.h"

#include <cstdio>
#include <ctime>

namespace hm16 {

LocalTime localTimeAt(std::chrono::system_clock::time_point moment) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm parts{};
#if defined(_WIN32)
    localtime_s(&parts, &seconds);
#else
    localtime_r(&seconds, &parts);
#endif
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
            parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

std::chrono::system_clock::time_point momentOf(const LocalTime& time) {
    std::tm parts{};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    parts.tm_hour = time.hour;
    parts.tm_min = time.minute;
    parts.tm_sec = time.second;
    parts.tm_isdst = -1;
    return std::chrono::system_clock::from_time_t(std::mktime(&parts));
}

std::string dayMark(const LocalTime& time) {
    char text[40];
    std::snprintf(text, sizeof text, "%04d%02d%02d", time.year, time.month, time.day);
    return text;
}

bool sameHour(const LocalTime& a, const LocalTime& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour;
}

}  // namespace hm16
