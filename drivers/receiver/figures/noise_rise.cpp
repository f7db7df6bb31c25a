// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/noise_rise.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace hm16::receiver {
namespace {

// All lengths here are in units of the noise's rms.
constexpr double kGuessStep = 0.125;  // between two guesses of the signal's highest
constexpr std::size_t kStepsPerBin = 2;
constexpr std::size_t kGuesses = 37;  // down to 4.5 below what was measured
constexpr std::size_t kSums = static_cast<std::size_t>(NoiseRise::kDepth / kGuessStep) + kGuesses;
constexpr std::array kPowers{0.0, 0.1, 0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 3.0};

// For one power the logarithms of the shares of samples in a bin that begins at a place, and of
// those from there on. Place 0 lies kDepth below the signal's highest.
struct Shape {
    std::array<double, kSums> inBin;
    std::array<double, kSums> fromHere;
};

// Shares of samples that noise brings over each place: the mean of (z - place) ^ power over the
// noise's normal distribution.
std::array<double, kSums + kStepsPerBin> sharesOver(double power) {
    constexpr std::size_t kFinePerStep = 4;
    constexpr double kFine = kGuessStep / kFinePerStep;
    constexpr double kFarthest = 7;
    std::vector<double> density;
    std::vector<double> grown;
    for (double z = kFine / 2 - NoiseRise::kDepth; z < kFarthest; z += kFine) {
        density.push_back(std::exp(-z * z / 2) * kFine / std::sqrt(2 * std::numbers::pi));
        grown.push_back(std::pow(z + NoiseRise::kDepth, power));
    }
    std::array<double, kSums + kStepsPerBin> shares{};
    for (std::size_t k = 0; k < shares.size(); ++k)
        for (std::size_t n = k * kFinePerStep; n < density.size(); ++n)
            shares[k] += density[n] * grown[n - k * kFinePerStep];
    return shares;
}

Shape shapeOf(double power) {
    constexpr double kLeast = 1e-12;
    const auto over = sharesOver(power);
    Shape shape;
    for (std::size_t k = 0; k < kSums; ++k) {
        shape.inBin[k] = std::log(std::max(kLeast, over[k] - over[k + kStepsPerBin]));
        shape.fromHere[k] = std::log(std::max(kLeast, over[k]));
    }
    return shape;
}

const std::vector<Shape>& shapes() {
    static const std::vector<Shape> all = [] {
        std::vector<Shape> made;
        for (const double power : kPowers) made.push_back(shapeOf(power));
        return made;
    }();
    return all;
}

// Where the highest of three points in a row lies, from -1/2 to 1/2 around the middle one.
double crestBetween(double before, double middle, double after) {
    const double bend = before - 2 * middle + after;
    return bend < 0 ? std::clamp((before - after) / (2 * bend), -0.5, 0.5) : 0;
}

}  // namespace

NoiseRise::NoiseRise(double highestHz, double noiseHz)
    : noiseHz_(noiseHz),
      lowestHz_(static_cast<float>(highestHz - kDepth * noiseHz)),
      binsPerHz_(static_cast<float>(1 / (kStepsPerBin * kGuessStep * noiseHz))) {
    // Below 0 Hz nothing can lie.
    const double hidden = std::ceil(-static_cast<double>(lowestHz_) * binsPerHz_);
    firstBin_ = static_cast<std::size_t>(std::clamp(hidden, 0.0, kBins - 1.0));
}

void NoiseRise::add(std::span<const float> magnitudes) {
    for (const float hz : magnitudes) {
        const float place = (hz - lowestHz_) * binsPerHz_;
        if (!(place >= 0)) continue;
        ++counts_[std::min(static_cast<std::size_t>(place), kBins - 1)];
    }
}

double NoiseRise::hz() const {
    static_assert(kBins * kStepsPerBin * kGuessStep == kDepth);
    double all = 0;
    for (std::size_t bin = firstBin_; bin < kBins; ++bin) all += counts_[bin];
    double most = 0;
    double rise = 0;
    bool first = true;
    for (const Shape& shape : shapes()) {
        std::array<double, kGuesses> likelihood{};
        const double* below = shape.fromHere.data() + kStepsPerBin * firstBin_;
        for (std::size_t guess = 0; guess < kGuesses; ++guess)
            likelihood[guess] = -all * below[guess];
        for (std::size_t bin = firstBin_; bin < kBins; ++bin) {
            if (counts_[bin] == 0) continue;
            const double* inBin = shape.inBin.data() + kStepsPerBin * bin;
            for (std::size_t guess = 0; guess < kGuesses; ++guess)
                likelihood[guess] += counts_[bin] * inBin[guess];
        }
        const auto best = std::max_element(likelihood.begin(), likelihood.end());
        if (!first && *best <= most) continue;
        first = false;
        most = *best;
        rise = static_cast<double>(best - likelihood.begin());
        if (best != likelihood.begin() && best + 1 != likelihood.end())
            rise += crestBetween(best[-1], best[0], best[1]);
    }
    return rise * kGuessStep * noiseHz_;
}

}  // namespace hm16::receiver
