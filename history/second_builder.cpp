// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/second_builder.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace history {

namespace {

constexpr std::uint32_t kSecondMs = 1000;

std::int64_t secondOf(std::int64_t ms) {
    return ms >= 0 ? ms / kSecondMs : -((-ms + kSecondMs - 1) / kSecondMs);
}

}  // namespace

SecondBuilder::SecondBuilder(Finished finished)
    : finished_(std::move(finished)), open_(figureCount()) {}

void SecondBuilder::begin(int station, int epoch) {
    finish();
    station_ = station;
    epoch_ = epoch;
}

void SecondBuilder::add(std::int64_t fromMs, std::int64_t toMs, const FigureValues& values) {
    while (fromMs < toMs) {
        const std::int64_t t = secondOf(fromMs);
        const std::int64_t end = std::min(toMs, (t + 1) * kSecondMs);
        addTo(t, static_cast<std::uint32_t>(end - fromMs), values);
        // As soon as it is whole, so that it is not lost for want of a next one.
        if (end == (t + 1) * kSecondMs) finish();
        fromMs = end;
    }
}

void SecondBuilder::addTo(std::int64_t t, std::uint32_t ms, const FigureValues& values) {
    if (t_ != t) finish();
    if (!t_) {
        t_ = t;
        const auto registry = figures::all();
        for (std::size_t i = 0; i < open_.size(); ++i) open_[i] = {KindSum(registry[i].kind)};
    }
    for (std::size_t i = 0; i < open_.size(); ++i) {
        Open& open = open_[i];
        const State state = values.state[i];
        const float value = values.value[i];
        if (state != State::Known || !std::isfinite(value)) {
            const State why = state == State::Known ? State::OutOfRange : state;
            open.causes[static_cast<std::size_t>(why)] += ms;
            continue;
        }
        open.highest = open.knownMs ? std::max(open.highest, value) : value;
        open.knownMs += ms;
        open.sum.add(static_cast<double>(value), ms);
    }
}

FigureSecond SecondBuilder::closed(std::size_t index) const {
    const Open& open = open_[index];
    Causes causes = open.causes;
    std::uint32_t told = open.knownMs;
    for (const std::uint32_t ms : causes) told += ms;
    if (told < kSecondMs) causes[static_cast<std::size_t>(State::UnitAway)] += kSecondMs - told;
    FigureSecond second;
    second.knownMs = static_cast<std::uint16_t>(std::min(open.knownMs, kSecondMs));
    second.state = longestCause(causes);
    if (second.state == State::Known) second.knownMs = kSecondMs;
    // A second that told of more than itself, under a clock that is slewed back.
    if (second.state != State::Known && second.knownMs == kSecondMs) second.state = State::Known;
    if (second.knownMs == 0) return second;
    const figures::Figure& figure = figures::all()[index];
    const double step = stepOf(figure);
    const double value =
        figure.kind == figures::Kind::Peak ? static_cast<double>(open.highest) : open.sum.mean();
    double steps = std::floor(value / step + 0.5);
    // An axis ends where it begins.
    if (figure.kind == figures::Kind::Angle && steps * step >= 180) steps -= 180 / step;
    second.value = static_cast<float>(steps * step);
    return second;
}

void SecondBuilder::finish() {
    if (!t_) return;
    Second second;
    second.t = *t_;
    second.station = station_;
    second.epoch = epoch_;
    for (std::size_t i = 0; i < open_.size(); ++i) second.figures[i] = closed(i);
    t_.reset();
    finished_(second);
}

}  // namespace history
