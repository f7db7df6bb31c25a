// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/day_lists.h"

#include "base/utf8.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

/// The second value's column, counted from the line's start.
constexpr std::size_t kSecondColumn = 17;

}  // namespace

std::string hourLabel(int hour) {
    return mask("00", hour).str();
}

std::string listLine(const DayTables& tables, const DayList& list, int hour) {
    const auto gap = static_cast<std::size_t>(list.gap);
    const std::string& first = tables.field(hour, list.first);
    const std::string label = hourLabel(hour);
    std::string line = label + std::string(gap, ' ') + first;
    if (list.second == 0) return line;
    const std::size_t used = label.size() + gap + base::characters(first);
    if (used < kSecondColumn) line.append(kSecondColumn - used, ' ');
    return line + tables.field(hour, list.second);
}

}  // namespace hmonitor
