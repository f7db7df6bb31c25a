// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "performance/day_tables.h"

namespace hmonitor {

/// The label of an hour, 0 to 23: "00" to "23".
std::string hourLabel(int hour);

/// One list of the text window: which fields its lines show, and how far after the hour.
struct DayList {
    int first;       ///< field of the first value
    int second = 0;  ///< field of the second, 0 for none
    int gap;         ///< blanks between the hour and the first value
};
/// `List1` to `List6`.
inline constexpr DayList kDayLists[] = {
    {.first = 1, .gap = 13},              // modulation
    {.first = 5, .gap = 13},              // radiated power
    {.first = 2, .second = 3, .gap = 6},  // levels
    {.first = 4, .gap = 6},               // stereo phase
    {.first = 7, .gap = 6},               // overmodulation
    {.first = 8, .second = 9, .gap = 6},  // silence and inverted phase
};

/// The line of an hour. The second value is aligned in a column unless the first is too long.
std::string listLine(const DayTables& tables, const DayList& list, int hour);

}  // namespace hmonitor
