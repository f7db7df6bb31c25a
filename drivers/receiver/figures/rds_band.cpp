// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/rds_band.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include "drivers/receiver/rds/rds_pulse.h"

namespace hm16::receiver {
namespace {

constexpr double kPointSeconds = 0.0125;
constexpr std::size_t kPoints = 80;  // one second
constexpr std::size_t kFewestRdsPoints = 16;

// Share of the band's power that must lie on the axis; noise alone leaves a few percent.
constexpr double kPresentShare = 0.2;
// Less deviation than this cannot be told from what programme leaves in the band.
constexpr double kLeastHz = 150;

// Highest sum that the pulses of neighbouring bits can give, and their mean power, over a grid of
// places within a bit.
double findCrestFactor() {
    constexpr int kPlaces = 64;
    constexpr int kReach = 3;
    double highest = 0;
    double power = 0;
    for (int place = 0; place < kPlaces; ++place) {
        const double at = static_cast<double>(place) / kPlaces;
        double sum = 0;
        for (int bit = -kReach; bit <= kReach; ++bit) {
            const double value = rdsPulse(at - bit);
            sum += std::fabs(value);
            power += value * value / kPlaces;
        }
        highest = std::max(highest, sum);
    }
    return highest / std::sqrt(power);
}

}  // namespace

double rdsCrestFactor() {
    static const double factor = findCrestFactor();
    return factor;
}

RdsBand::RdsBand(double rateHz, double startSeconds)
    : rateHz_(rateHz),
      seconds_(startSeconds),
      perPoint_(static_cast<std::size_t>(std::lround(kPointSeconds * rateHz))) {}

void RdsBand::add(std::span<const std::complex<float>> band) {
    for (const std::complex<float> value : band) {
        const std::complex<double> sample(value);
        squared_ += sample * sample;
        power_ += std::norm(sample);
        if (++inPoint_ < perPoint_) continue;
        const auto count = static_cast<double>(perPoint_);
        const double length = count / rateHz_;
        double phase = std::arg(squared_);
        if (!points_.empty())
            phase += 2 * std::numbers::pi *
                     std::round((points_.back().phase - phase) / (2 * std::numbers::pi));
        points_.push_back(
            {seconds_ + length / 2 - 0.5 / rateHz_, squared_ / count, power_ / count, phase});
        if (points_.size() > kPoints) points_.pop_front();
        seconds_ += length;
        squared_ = 0;
        power_ = 0;
        inPoint_ = 0;
    }
}

void RdsBand::update() {
    present_ = false;
    if (points_.size() < kFewestRdsPoints) return;
    double meanTime = 0;
    double meanPhase = 0;
    for (const Point& p : points_) {
        meanTime += p.seconds;
        meanPhase += p.phase;
    }
    meanTime /= static_cast<double>(points_.size());
    meanPhase /= static_cast<double>(points_.size());
    double across = 0;
    double spread = 0;
    for (const Point& p : points_) {
        across += (p.seconds - meanTime) * (p.phase - meanPhase);
        spread += (p.seconds - meanTime) * (p.seconds - meanTime);
    }
    lineTime_ = meanTime;
    linePhase_ = meanPhase;
    lineSlope_ = across / spread;
    std::complex<double> along = 0;
    double power = 0;
    for (const Point& p : points_) {
        along += p.squared * std::polar(1.0, -(linePhase_ + lineSlope_ * (p.seconds - meanTime)));
        power += p.power;
    }
    power /= static_cast<double>(points_.size());
    errorHz_ = lineSlope_ / 2 / (2 * std::numbers::pi);
    // The phase turns a little within a point, which reduces the sum of that point.
    const double turned = lineSlope_ * static_cast<double>(perPoint_) / rateHz_ / 2;
    const double kept = turned == 0 ? 1 : std::sin(turned) / turned;
    amplitudeSquared_ =
        std::max(0.0, along.real() / static_cast<double>(points_.size()) / std::max(0.5, kept));
    present_ = power > 0 && amplitudeSquared_ > kPresentShare * power && levelHz() > kLeastHz;
}

// A subcarrier of a(t) comes out of the band filter at half its size.
double RdsBand::levelHz() const {
    return rdsCrestFactor() * 2 * std::sqrt(amplitudeSquared_);
}

double RdsBand::meanSquare() const {
    return 2 * amplitudeSquared_;
}

double RdsBand::axisAt(double seconds) const {
    return (linePhase_ + lineSlope_ * (seconds - lineTime_)) / 2;
}

}  // namespace hm16::receiver
