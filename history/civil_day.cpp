// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/civil_day.h"

#include "core/numbers.h"

namespace history {

namespace {

constexpr std::int64_t kLongestDay = 30 * 3600;  // with room for a zone that moves

}  // namespace

std::string CivilDay::text() const {
    std::string text(hmonitor::mask("0000", year).view());
    text += '-';
    text += hmonitor::mask("00", month).view();
    text += '-';
    text += hmonitor::mask("00", day).view();
    return text;
}

std::optional<CivilDay> CivilDay::parse(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    for (const std::size_t i : {0, 1, 2, 3, 5, 6, 8, 9}) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
    }
    const auto number = [&](std::size_t at, std::size_t size) {
        return static_cast<int>(hmonitor::valueOf(text.substr(at, size)));
    };
    const CivilDay day{number(0, 4), number(5, 2), number(8, 2)};
    if (day.month < 1 || day.month > 12 || day.day < 1 || day.day > 31) return std::nullopt;
    return day;
}

DayBounds boundsOfDay(std::int64_t t) {
    const CivilDay day = CivilDay::of(t);
    // Not by mktime: in some zones a day has no midnight.
    std::int64_t before = t - kLongestDay;
    std::int64_t begin = t;
    while (begin - before > 1) {
        const std::int64_t middle = before + (begin - before) / 2;
        (CivilDay::of(middle) < day ? before : begin) = middle;
    }
    std::int64_t last = t;
    std::int64_t end = t + kLongestDay;
    while (end - last > 1) {
        const std::int64_t middle = last + (end - last) / 2;
        (day < CivilDay::of(middle) ? end : last) = middle;
    }
    return {begin, end};
}

}  // namespace history
