// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/library/coarse_converter.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace hm16::receiver {
namespace {

// Below, nothing can be known; above, the error is under 0.01 dB.
constexpr double kFewestSteps = 1;
constexpr double kMostSteps = 30;

// Of the band's power, what a carrier has at least whose steps are not blurred by others.
constexpr double kLeastShare = 0.5;

// Mean power of what rounding to steps adds to both parts of a sample.
constexpr double kRounding = 1.0 / 6;

// So much noise blurs all thresholds into one slope.
constexpr double kBlurred = 0.7;

// How far above the threshold below it a mean lies whose values are like `value`.
double aboveThreshold(double mean, double value) {
    return mean - (value - std::floor(value) + 0.5);
}

double squareWaves(double amplitude, double centre) {
    double sum = 0;
    for (double at = std::ceil(centre - amplitude); at < centre + amplitude; ++at) {
        const double place = (at - centre) / amplitude;
        sum += std::sqrt(std::max(0.0, 1 - place * place));
    }
    return 2 / std::numbers::pi * sum;
}

}  // namespace

double amplitudeBehind(double amplitude, double centre, double noise) {
    if (amplitude <= 0) return 0;
    if (noise > kBlurred) return amplitude;
    constexpr int kPoints = 12;  // on each side, up to three times the noise's rms
    double sum = 0;
    double weights = 0;
    for (int n = -kPoints; n <= kPoints; ++n) {
        const double away = 3.0 * n / kPoints;
        const double weight = std::exp(-away * away / 2);
        sum += weight * squareWaves(amplitude, centre + away * noise);
        weights += weight;
    }
    return sum / weights;
}

void CoarseConverter::look(std::span<const Sample> stretch) {
    if (step_ <= 0 || stretch.empty()) return;
    std::complex<double> sum = 0;
    double squares = 0;
    for (const Sample sample : stretch) {
        sum += std::complex<double>(sample);
        squares += std::norm(std::complex<double>(sample));
    }
    const auto count = static_cast<double>(stretch.size());
    const std::complex<double> mean = sum / count / step_;
    total_ = squares / count / (step_ * step_) - std::norm(mean);
    const std::complex<double> value = std::complex<double>(stretch.front()) / step_;
    centreI_ = aboveThreshold(mean.real(), value.real());
    centreQ_ = aboveThreshold(mean.imag(), value.imag());
}

double CoarseConverter::powerBefore(double power) const {
    if (step_ <= 0 || power <= 0) return power;
    const double behind = std::sqrt(power) / step_;
    if (behind < kFewestSteps || behind > kMostSteps) return power;
    if (behind * behind < kLeastShare * total_) return power;
    const double rest = std::max(0.0, total_ - behind * behind - kRounding);
    const double noise = std::sqrt(rest / 2);
    // More before is more behind, so halving finds it.
    double low = std::max(0.0, behind - 1);
    double high = behind + 1;
    for (int round = 0; round < 30; ++round) {
        const double middle = (low + high) / 2;
        const double now =
            (amplitudeBehind(middle, centreI_, noise) + amplitudeBehind(middle, centreQ_, noise)) /
            2;
        (now < behind ? low : high) = middle;
    }
    const double before = (low + high) / 2 * step_;
    return before * before;
}

}  // namespace hm16::receiver
