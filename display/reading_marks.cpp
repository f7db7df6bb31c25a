// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/reading_marks.h"

#include <cmath>

#include "display/form.h"

namespace display {

namespace {

/// Numbers that stand over one another: closer sideways than anybody can see, in twips.
constexpr float kSameColumn = 1;

}  // namespace

void ReadingMarks::refresh() {
    if (read_ == drawing_.revision()) return;
    read_ = drawing_.revision();
    table_ = drawing_.numbers ? drawing_.numbers() : NumberTable{};
}

bool ReadingMarks::any() {
    refresh();
    return !table_.spots.empty();
}

const ReadingMarks::Spot* ReadingMarks::spotOf(const std::optional<Spot>& mark) const {
    if (!mark) return nullptr;
    const Spot* found = nullptr;
    for (const Spot& spot : table_.spots) {
        if (spot.column != mark->column) continue;
        const Place place = placeOf(spot);
        const Place wanted = placeOf(*mark);
        if (std::fabs(place.x - wanted.x) > kSameColumn) continue;
        if (!found || std::fabs(place.y - wanted.y) < std::fabs(placeOf(*found).y - wanted.y))
            found = &spot;
    }
    return found;
}

void ReadingMarks::point(Place at) {
    refresh();
    const Spot* nearest = nullptr;
    float aside = 0, away = 0;
    for (const Spot& spot : table_.spots) {
        const Place place = placeOf(spot);
        const float itsAside = std::fabs(place.x - at.x);
        const float itsAway = std::fabs(place.y - at.y);
        const bool same = nearest && std::fabs(itsAside - aside) <= kSameColumn;
        if (nearest && (same ? itsAway >= away : itsAside > aside)) continue;
        nearest = &spot;
        aside = itsAside;
        away = itsAway;
    }
    go(nearest);
}

bool ReadingMarks::go(const Spot* to) {
    if (to) at_ = *to;
    return to != nullptr;
}

const ReadingMarks::Spot* ReadingMarks::beside(const Spot& from, bool toTheRight) const {
    const Place start = placeOf(from);
    const Spot* next = nullptr;
    float way = 0, away = 0;
    for (const Spot& spot : table_.spots) {
        const Place place = placeOf(spot);
        const float itsWay = toTheRight ? place.x - start.x : start.x - place.x;
        if (itsWay <= kSameColumn) continue;
        const float itsAway = std::fabs(place.y - start.y);
        const bool same = next && std::fabs(itsWay - way) <= kSameColumn;
        if (next && (same ? itsAway >= away : itsWay > way)) continue;
        next = &spot;
        way = itsWay;
        away = itsAway;
    }
    return next;
}

const ReadingMarks::Spot* ReadingMarks::over(const Spot& from, bool upward) const {
    const Place start = placeOf(from);
    const Spot* next = nullptr;
    float way = 0;
    for (const Spot& spot : table_.spots) {
        const Place place = placeOf(spot);
        const float itsWay = upward ? start.y - place.y : place.y - start.y;
        if (std::fabs(place.x - start.x) > kSameColumn || itsWay <= 0) continue;
        if (next && itsWay >= way) continue;
        next = &spot;
        way = itsWay;
    }
    return next;
}

const ReadingMarks::Spot* ReadingMarks::outermost(bool last) const {
    const Spot* found = nullptr;
    for (const Spot& spot : table_.spots) {
        const float x = placeOf(spot).x;
        if (!found || (last ? x > placeOf(*found).x : x < placeOf(*found).x)) found = &spot;
    }
    return found;
}

bool ReadingMarks::step(Step step) {
    constexpr int kFar = 10;
    refresh();
    const Spot* const now = spotOf(at_);
    if (!now || step == Step::First || step == Step::Last) return go(outermost(step == Step::Last));
    if (step == Step::Up || step == Step::Down) return go(over(*now, step == Step::Up));
    const bool far = step == Step::FarLeft || step == Step::FarRight;
    const bool toTheRight = step == Step::Right || step == Step::FarRight;
    const Spot* to = now;
    for (int i = 0; i < (far ? kFar : 1); ++i) {
        const Spot* const next = beside(*to, toTheRight);
        if (!next) break;
        to = next;
    }
    return to != now && go(to);
}

void ReadingMarks::fix() {
    refresh();
    const Spot* const now = spotOf(at_);
    if (!now) return;
    const bool there = spotOf(fixed_) == now;
    if (there) {
        fixed_.reset();
    } else {
        fixed_ = *now;
    }
}

void ReadingMarks::clear() {
    at_.reset();
    fixed_.reset();
}

std::optional<Place> ReadingMarks::shown(const std::optional<Spot>& mark) {
    refresh();
    const Spot* const spot = spotOf(mark);
    return spot ? std::optional(placeOf(*spot)) : std::nullopt;
}

std::optional<Place> ReadingMarks::at() {
    return shown(at_);
}

std::optional<Place> ReadingMarks::fixedAt() {
    return shown(fixed_);
}

std::optional<std::size_t> ReadingMarks::row() {
    refresh();
    const Spot* const spot = spotOf(at_);
    return spot ? std::optional(spot->row) : std::nullopt;
}

std::vector<std::string> ReadingMarks::lines() {
    refresh();
    const Spot* const now = spotOf(at_);
    if (!now) return {};
    std::vector<std::string> lines{spotText(table_, *now)};
    const Spot* const from = spotOf(fixed_);
    if (!from || from == now) return lines;
    const Language language = drawing_.form().language;
    lines.push_back(std::string(wordsIn(language, {"Marca: ", "Mark: "})) +
                    spotText(table_, *from));
    lines.push_back(std::string(wordsIn(language, {"Diferencia: ", "Difference: "})) +
                    differenceText(table_, *from, *now));
    return lines;
}

}  // namespace display
