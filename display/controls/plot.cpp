// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/plot.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace display {

namespace {

/// Twips that a figure and the room beside it take, across and up.
constexpr double kFigureWidth = 820;
constexpr double kFigureHeight = 230;

constexpr Colour kUnnamedCause{0x808080};

int roomFor(double twips, double each) {
    return static_cast<int>(std::clamp(std::floor(twips / each), 2.0, 60.0));
}

}  // namespace

void Plot::series(std::vector<PlotSeries> shown) {
    series_ = std::move(shown);
    touch();
}

void Plot::append(std::size_t which, const PlotPoint& point) {
    series_.at(which).points.push_back(point);
    touch();
}

void Plot::reference(std::optional<PlotSeries> shown) {
    if (!shown && !reference_) return;
    reference_ = std::move(shown);
    touch();
}

void Plot::limits(std::vector<PlotLimit> shown) {
    limits_ = std::move(shown);
    touch();
}

void Plot::flags(std::vector<PlotFlag> shown) {
    flags_ = std::move(shown);
    touch();
}

void Plot::causes(std::vector<PlotCause> known) {
    causes_ = std::move(known);
    touch();
}

Colour Plot::causeColour(std::uint8_t cause) const {
    const auto found = std::ranges::find(causes_, cause, &PlotCause::cause);
    return found == causes_.end() ? kUnnamedCause : found->colour;
}

void Plot::mark(std::size_t which, std::optional<double> at) {
    if (marks_.at(which) == at) return;
    marks_.at(which) = at;
    touch();
}

void Plot::clock(WallClock itsClock) {
    clock_ = std::move(itsClock);
    touch();
}

std::vector<PlotTick> Plot::ticksAcross(double twips) const {
    const int atMost = roomFor(twips, kFigureWidth);
    return x.get().kind == AxisKind::Moments ? timeTicks(x, atMost, clock_) : roundTicks(x, atMost);
}

std::vector<PlotTick> Plot::ticksUp(double twips) const {
    return roundTicks(y, roomFor(twips, kFigureHeight));
}

/// Keeps the range within reach: first its length, then its place.
void Plot::look(double lowest, double highest) {
    const Reach within = reach;
    if (!(within.latest > within.earliest)) return;
    const double all = within.latest - within.earliest;
    const double longest = std::min(within.longest > 0 ? within.longest : all, all);
    const double length = std::clamp(highest - lowest, std::min(within.shortest, longest), longest);
    // What is too long or too short keeps its middle.
    const double middle = (lowest + highest) / 2;
    const double from = std::clamp(middle - length / 2, within.earliest, within.latest - length);
    PlotAxis looked = x;
    looked.lowest = from;
    looked.highest = from + length;
    if (looked == x.get()) return;
    x = looked;
    if (onLook) onLook();
}

void Plot::zoom(double by, double at) {
    const Reach within = reach;
    if (!(by > 0) || !(within.latest > within.earliest)) return;
    const double span = x.get().span();
    const double all = within.latest - within.earliest;
    const double longest = std::min(within.longest > 0 ? within.longest : all, all);
    const double wanted = std::clamp(span / by, std::min(within.shortest, longest), longest);
    const double held = x.get().lowest + at * span;
    look(held - at * wanted, held - at * wanted + wanted);
}

void Plot::shift(double share) {
    const double way = share * x.get().span();
    look(x.get().lowest + way, x.get().highest + way);
}

void Plot::point(std::size_t which, double share) {
    const double at = x.get().valueAt(std::clamp(share, 0.0, 1.0));
    if (marks_.at(which) == at) return;
    mark(which, at);
    if (onMark) onMark();
}

/// A mark that is not in view comes into its middle.
void Plot::moveMark(std::size_t which, double share) {
    const auto at = marks_.at(which);
    const double now = at ? x.get().shareOf(*at) : -1;
    point(which, now < 0 || now > 1 ? 0.5 : now + share);
}

void Plot::press(PlotKey key) {
    constexpr double kWay = 1.0 / 8;
    constexpr double kMarkWay = 1.0 / 100;
    const double marked = marks_[0] ? x.get().shareOf(*marks_[0]) : -1;
    const double about = marked >= 0 && marked <= 1 ? marked : 0.5;
    const double span = x.get().span();
    const Reach within = reach;
    switch (key) {
        case PlotKey::In:
            return zoom(2, about);
        case PlotKey::Out:
            return zoom(0.5, about);
        case PlotKey::Left:
            return shift(-kWay);
        case PlotKey::Right:
            return shift(kWay);
        case PlotKey::First:
            return look(std::max(within.first, within.earliest),
                        std::max(within.first, within.earliest) + span);
        case PlotKey::Last:
            return look(within.latest - span, within.latest);
        case PlotKey::MarkLeft:
            return moveMark(0, -kMarkWay);
        case PlotKey::MarkRight:
            return moveMark(0, kMarkWay);
        case PlotKey::OtherLeft:
            return moveMark(1, -kMarkWay);
        case PlotKey::OtherRight:
            return moveMark(1, kMarkWay);
        case PlotKey::NoMarks:
            mark(0, std::nullopt);
            mark(1, std::nullopt);
            if (onMark) onMark();
            return;
    }
}

void Plot::resetKind() {
    KindOf::resetKind();
    series_.clear();
    reference_.reset();
    limits_.clear();
    flags_.clear();
    causes_.clear();
    marks_ = {};
    clock_ = {};
    touch();
}

}  // namespace display
