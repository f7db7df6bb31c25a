// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

namespace hm16 {

// A local date and time of day.
struct LocalTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

LocalTime localTimeAt(std::chrono::system_clock::time_point moment);

// The time at which the local clock shows `time`; values out of range carry over, as in 24:00.
std::chrono::system_clock::time_point momentOf(const LocalTime& time);

// Eight digits, year first: 20240229.
std::string dayMark(const LocalTime& time);

// True when both lie in one hour of one day.
bool sameHour(const LocalTime& a, const LocalTime& b);

}  // namespace hm16
