// SPDX-License-Identifier: GPL-3.0-or-later
#include "limits/limit_entry.h"

#include <cmath>
#include <limits>

#include "base/number_in_text.h"
#include "core/limits_file.h"

namespace hmonitor {

namespace {

bool usesLowest(LimitKind kind) {
    return kind != LimitKind::Above;
}
bool usesHighest(LimitKind kind) {
    return kind != LimitKind::Below;
}

bool inRange(const std::optional<double>& number, const figures::Bounds& range) {
    return number && *number >= range.lowest && *number <= range.highest;
}

bool isTime(std::string_view text) {
    const auto seconds = base::numberIn(text);
    return seconds && *seconds >= 0 && *seconds <= LimitRule::kLongestTime;
}

std::string boundText(float bound) {
    return std::isfinite(bound) ? limitText(bound) : "";
}

std::string offered(float good, float ofRange) {
    return limitText(std::isfinite(good) ? good : ofRange);
}

}  // namespace

LimitKind kindOf(const LimitRule& rule) {
    if (!std::isfinite(rule.good.lowest)) return LimitKind::Above;
    return std::isfinite(rule.good.highest) ? LimitKind::Outside : LimitKind::Below;
}

LimitEntry entryOf(const LimitRule& rule) {
    return {rule.figure,
            kindOf(rule),
            boundText(rule.good.lowest),
            boundText(rule.good.highest),
            limitText(rule.holdsFor),
            limitText(rule.release),
            rule.severity};
}

display::Words faultOf(const LimitEntry& entry) {
    const auto lowest = base::numberIn(entry.lowest), highest = base::numberIn(entry.highest);
    const figures::Bounds& range = entry.figure->range;
    const bool low = usesLowest(entry.kind), high = usesHighest(entry.kind);
    if ((low && !inRange(lowest, range)) || (high && !inRange(highest, range))) {
        return {"El límite es un número dentro del margen de la medida",
                "A limit is a number within the figure's range"};
    }
    if (low && high && *lowest > *highest) {
        return {"El límite inferior es mayor que el superior",
                "The lower limit is above the upper one"};
    }
    if (!isTime(entry.holdsFor) || !isTime(entry.release)) {
        return {"Los tiempos son segundos, de 0 a 3600", "Times are seconds, 0 to 3600"};
    }
    return {};
}

LimitRule ruleOf(const LimitEntry& entry, LimitRule rule) {
    constexpr float kOpenEnd = std::numeric_limits<float>::infinity();
    const auto bound = [](std::string_view text) {
        return static_cast<float>(base::numberIn(text).value_or(0));
    };
    LimitRule changed = rule;
    changed.figure = entry.figure;
    changed.good = {usesLowest(entry.kind) ? bound(entry.lowest) : -kOpenEnd,
                    usesHighest(entry.kind) ? bound(entry.highest) : kOpenEnd};
    changed.holdsFor = base::numberIn(entry.holdsFor).value_or(0);
    changed.release = base::numberIn(entry.release).value_or(0);
    changed.severity = entry.severity;
    if (sameRule(rule, changed)) return rule;
    changed.lines.clear();
    return changed;
}

void offerBounds(LimitEntry& entry) {
    const figures::Figure& figure = *entry.figure;
    if (!usesLowest(entry.kind)) entry.lowest.clear();
    if (!usesHighest(entry.kind)) entry.highest.clear();
    if (usesLowest(entry.kind) && !inRange(base::numberIn(entry.lowest), figure.range)) {
        entry.lowest = offered(figure.good.lowest, figure.range.lowest);
    }
    if (usesHighest(entry.kind) && !inRange(base::numberIn(entry.highest), figure.range)) {
        entry.highest = offered(figure.good.highest, figure.range.highest);
    }
}

}  // namespace hmonitor
