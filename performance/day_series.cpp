// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/day_series.h"

#include <algorithm>

#include "core/numbers.h"

namespace hmonitor {

std::int32_t DaySeries::pageY(std::string_view text) const {
    const double value = std::clamp(valueOf(text) + offset, 0.0, static_cast<double>(highest));
    return toWhole(base - scale * value);
}

std::string DaySeries::coordinates(const DayTables& tables, int lastHour) const {
    std::string text;
    for (int hour = 0; hour <= lastHour; ++hour) {
        text.append(wholeText(pageX(hour))).append(" ");
        // An hour without a line is drawn at the bottom of its diagram, for levels too.
        const bool absent = tables.hourLine(hour).empty();
        text.append(wholeText(absent ? base : pageY(tables.field(hour, field)))).append(" ");
    }
    return text;
}

}  // namespace hmonitor
