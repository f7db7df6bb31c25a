// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_bits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "drivers/receiver/rds/rds_pulse.h"

namespace hm16::receiver {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// The pulse's energy lies within this; more would only let in the neighbours' noise.
constexpr double kReachBits = 2.2;
constexpr double kRdsPointSeconds = 0.01;
constexpr double kKeptOfTurn = 0.98;  // from point to point: half a second
constexpr int kFarPoints = 4;

// Noise alone comes to half as much.
constexpr double kLeastTurnCertainty = 0.25;

// Both sides together are the surer ground unless one alone fits so much better.
constexpr double kBothSides = 0.75;

constexpr double kKeptOfClock = 0.96;  // from point to point: a quarter of a second
constexpr double kStillFits = 0.5;     // of what another clock would fit

std::vector<double> matchedTaps(double rateHz) {
    const double perBit = rateHz / kRdsBitsPerSecond;
    const int reach = static_cast<int>(std::lround(kReachBits * perBit));
    std::vector<double> taps;
    for (int n = -reach; n <= reach; ++n) taps.push_back(rdsPulse(n / perBit));
    return taps;
}

}  // namespace

RdsBits::RdsBits(double rateHz, double startSeconds, OnBit onBit)
    : rateHz_(rateHz),
      bitsPerSample_(kRdsBitsPerSecond / rateHz),
      perPoint_(static_cast<std::size_t>(std::lround(kRdsPointSeconds * rateHz))),
      matchedFilter_(matchedTaps(rateHz), 1),
      startSeconds_(startSeconds + matchedFilter_.delay() / rateHz),
      onBit_(std::move(onBit)) {}

void RdsBits::add(std::span<const std::complex<float>> band) {
    matchedFilter_.process(band, matched_);
    const Phasor step = std::polar(1.0, -kTurn * bitsPerSample_);
    for (; inPoints_ < matched_.size(); ++inPoints_) {
        const Phasor value(matched_[inPoints_]);
        const double power = std::norm(value);
        point_.squared += value * value;
        point_.lines.clock += power * clockTurn_;
        point_.lines.clock2 += power * clockTurn_ * clockTurn_;
        clockTurn_ *= step;
        if (++inPoint_ == perPoint_) addPoint();
    }
}

void RdsBits::addPoint() {
    if (!points_.empty()) {
        const Point& before = points_.back();
        turnOfOne_ = kKeptOfTurn * turnOfOne_ + std::conj(before.squared) * point_.squared;
        turnSize_ = kKeptOfTurn * turnSize_ + std::abs(before.squared) * std::abs(point_.squared);
    }
    if (points_.size() >= static_cast<std::size_t>(kFarPoints)) {
        const Point& before = points_[points_.size() - static_cast<std::size_t>(kFarPoints)];
        turnOfFour_ = kKeptOfTurn * turnOfFour_ + std::conj(before.squared) * point_.squared;
    }
    points_.push_back(point_);
    ++pointsSoFar_;
    point_ = {};
    inPoint_ = 0;
    // Where one point's turn leaves the four's open, it is near enough to close it.
    const double coarse = std::arg(turnOfOne_);
    turnPerPoint_ =
        coarse + std::arg(turnOfFour_ * std::polar(1.0, -kFarPoints * coarse)) / kFarPoints;
    clockTurn_ =
        std::polar(1.0, -kTurn * bitsPerSample_ * static_cast<double>(pointsSoFar_ * perPoint_));
    if (points_.size() < 2 * kAround + 1) return;
    // The first ones have nothing before them.
    for (; decoded_ < kAround; ++decoded_) decodePoint(decoded_);
    decodePoint(kAround);
    ++decoded_;
    points_.pop_front();
    dropUsed();
}

void RdsBits::dropUsed() {
    constexpr std::uint64_t kForInterpolation = 4;
    const std::uint64_t keptFrom = decoded_ * perPoint_ - kForInterpolation;
    if (keptFrom <= firstMatched_) return;
    const auto used = static_cast<std::size_t>(keptFrom - firstMatched_);
    matched_.erase(matched_.begin(), matched_.begin() + static_cast<std::ptrdiff_t>(used));
    firstMatched_ = keptFrom;
    inPoints_ -= used;
}

RdsBits::Axis RdsBits::axisIn(const Stretch& stretch, std::size_t point) const {
    Phasor sum = 0;
    double size = 0;
    for (std::size_t n = stretch.from; n < stretch.to; ++n) {
        const double away = static_cast<double>(n) - static_cast<double>(point);
        sum += points_[n].squared * std::polar(1.0, -turnPerPoint_ * away);
        size += std::abs(points_[n].squared);
    }
    return {std::arg(sum) / 2, size > 0 ? std::abs(sum) / size : 0};
}

// The power of the matched filter's output over a bit has two lines; where they peak together is
// the bit's middle.
double RdsBits::Lines::at(double turns) const {
    const Phasor turn = std::polar(1.0, kTurn * turns);
    return (clock * turn + clock2 * turn * turn).real();
}

double RdsBits::Lines::middle() const {
    constexpr std::size_t kPhases = 32;
    std::array<double, kPhases> height{};
    for (std::size_t n = 0; n < kPhases; ++n) height[n] = at(static_cast<double>(n) / kPhases);
    const auto best =
        static_cast<std::size_t>(std::max_element(height.begin(), height.end()) - height.begin());
    const double before = height[(best + kPhases - 1) % kPhases];
    const double after = height[(best + 1) % kPhases];
    const double bend = before - 2 * height[best] + after;
    const double between = bend < 0 ? (before - after) / (2 * bend) : 0;
    return (static_cast<double>(best) + between) / kPhases;
}

// Equal bits in a row look the same half a bit later: only what came before tells them apart, and
// it goes on being believed until what comes does not fit at all.
double RdsBits::clockAt(std::size_t point) {
    const auto linesOf = [&](std::size_t from, std::size_t to) {
        Lines lines;
        for (std::size_t n = from; n < to; ++n) lines += points_[n].lines;
        return lines;
    };
    const Lines ahead = linesOf(point, point + kAround + 1);
    Lines all = past_;
    all += ahead;
    double middle = all.middle();
    const double elsewhere = ahead.middle();
    if (ahead.at(middle) < kStillFits * ahead.at(elsewhere)) {
        const Lines here = linesOf(point, point + kAround / 3 + 1);
        const double before = past_.middle();
        const bool jumped = here.at(before) < here.at(elsewhere);
        middle = jumped ? elsewhere : before;
        if (jumped) past_ = {};
    }
    past_.clock *= kKeptOfClock;
    past_.clock2 *= kKeptOfClock;
    past_ += points_[point].lines;
    return middle;
}

void RdsBits::decodePoint(std::size_t point) {
    const std::size_t first = point < kAround ? 0 : point - kAround;
    const std::size_t end = point + kAround + 1;
    Axis axis = axisIn({first, end}, point);
    axis.certainty /= kBothSides;
    for (const Stretch& side : {Stretch{first, point + 1}, Stretch{point, end}}) {
        if (side.to - side.from <= kAround / 2) continue;
        const Axis onSide = axisIn(side, point);
        if (onSide.certainty > axis.certainty) axis = onSide;
    }
    // The axis leaves half a turn open; it goes on where it was.
    const double expected = axis_ + turnPerPoint_ / 2;
    axis_ = std::remainder(
        axis.angle + std::numbers::pi * std::round((expected - axis.angle) / std::numbers::pi),
        kTurn);
    const double turns = clockAt(point);
    if (std::abs(turnOfOne_) > kLeastTurnCertainty * turnSize_) decide(axis_, turns);
}

// The bits whose middles lie in the point that is decoded.
void RdsBits::decide(double angle, double turns) {
    const auto point = static_cast<double>(decoded_);
    const auto length = static_cast<double>(perPoint_);
    const double start = std::max(point * length, lastSample_ + 0.5 / bitsPerSample_);
    const double centre = (point + 0.5) * length - 0.5;
    for (double bit = std::ceil(start * bitsPerSample_ - turns);; ++bit) {
        const double sample = (bit + turns) / bitsPerSample_;
        if (sample >= (point + 1) * length) break;
        const Phasor axis =
            std::polar(1.0, -(angle + turnPerPoint_ / 2 * (sample - centre) / length));
        const auto value = static_cast<float>((matchedAt(sample) * axis).real());
        onBit_((value > 0) != (lastValue_ > 0), std::min(std::fabs(value), std::fabs(lastValue_)),
               startSeconds_ + sample / rateHz_);
        lastValue_ = value;
        lastSample_ = sample;
    }
}

// Between the samples, by the cubic through four neighbours.
RdsBits::Phasor RdsBits::matchedAt(double sample) const {
    const double whole = std::floor(sample);
    const double x = sample - whole;
    const auto at = static_cast<std::int64_t>(whole) - static_cast<std::int64_t>(firstMatched_);
    if (at < 1 || at + 2 >= static_cast<std::int64_t>(matched_.size())) return 0;
    const auto value = [&](std::int64_t n) {
        return Phasor(matched_[static_cast<std::size_t>(at + n)]);
    };
    return -x * (x - 1) * (x - 2) / 6 * value(-1) + (x + 1) * (x - 1) * (x - 2) / 2 * value(0) -
           (x + 1) * x * (x - 2) / 2 * value(1) + (x + 1) * x * (x - 1) / 6 * value(2);
}

}  // namespace hm16::receiver
