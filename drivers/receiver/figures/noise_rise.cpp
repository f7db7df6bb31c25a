// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/noise_rise.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace hm16::receiver {
namespace {

// All lengths here are in units of the noise's rms.
constexpr double kStep = 0.125;  // between two guesses of the signal's highest
constexpr std::size_t kStepsPerBin = 2;
constexpr double kDepth = 8;
constexpr std::size_t kGuesses = 37;  // down to 4.5 below what was measured
constexpr std::size_t kPlaces = static_cast<std::size_t>(kDepth / kStep) + kGuesses;
constexpr std::array kPowers{0.0, 0.1, 0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 3.0};

// For one power the logarithms of the shares of samples in a bin that begins at a place, and of
// those from there on. Place 0 lies kDepth below the signal's highest.
struct Shape {
    std::array<double, kPlaces> inBin;
    std::array<double, kPlaces> fromHere;
};

// Share of samples that noise brings over a level `above` the signal's highest: the mean of
// (z - above) ^ power over the noise's normal distribution.
double shareOver(double above, double power) {
    constexpr double kFine = kStep / 4;
    constexpr double kFarthest = 7;
    double sum = 0;
    for (double z = std::max(above, -kFarthest) + kFine / 2; z < kFarthest; z += kFine)
        sum += std::pow(z - above, power) * std::exp(-z * z / 2);
    return sum * kFine / std::sqrt(2 * std::numbers::pi);
}

Shape shapeOf(double power) {
    constexpr double kLeast = 1e-12;
    std::array<double, kPlaces + kStepsPerBin> over;
    for (std::size_t k = 0; k < over.size(); ++k)
        over[k] = shareOver(static_cast<double>(k) * kStep - kDepth, power);
    Shape shape;
    for (std::size_t k = 0; k < kPlaces; ++k) {
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
      binsPerHz_(static_cast<float>(1 / (kStepsPerBin * kStep * noiseHz))) {
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
    static_assert(kBins * kStepsPerBin * kStep == kDepth);
    double all = 0;
    for (std::size_t bin = firstBin_; bin < kBins; ++bin) all += static_cast<double>(counts_[bin]);
    const auto likelihood = [&](const Shape& shape, std::size_t guess) {
        double sum = -all * shape.fromHere[kStepsPerBin * firstBin_ + guess];
        for (std::size_t bin = firstBin_; bin < kBins; ++bin)
            sum += static_cast<double>(counts_[bin]) * shape.inBin[kStepsPerBin * bin + guess];
        return sum;
    };
    const Shape* best = &shapes().front();
    std::size_t bestGuess = 0;
    double most = likelihood(*best, 0);
    for (const Shape& shape : shapes()) {
        for (std::size_t guess = 0; guess < kGuesses; ++guess) {
            const double now = likelihood(shape, guess);
            if (now <= most) continue;
            most = now;
            best = &shape;
            bestGuess = guess;
        }
    }
    double rise = static_cast<double>(bestGuess);
    if (bestGuess > 0 && bestGuess + 1 < kGuesses)
        rise +=
            crestBetween(likelihood(*best, bestGuess - 1), most, likelihood(*best, bestGuess + 1));
    return rise * kStep * noiseHz_;
}

}  // namespace hm16::receiver
