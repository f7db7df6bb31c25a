// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/separation.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <numbers>

#include "drivers/receiver/figures/audio_power.h"
#include "drivers/receiver/figures/steady_tone.h"

namespace hm16::receiver {
namespace {

constexpr double kQuietBlockDb = -45;  // below this a block says nothing
constexpr double kOneSidedDb = 6;      // a tone this much louder on one side is meant to be
constexpr double kTestToneDb = 20;     // a tone this much over the rest is a test tone
constexpr std::size_t kFewestTones = 4;
constexpr std::size_t kFewestSeparations = 20;
constexpr double kHighestDb = 99;

double decibels(double ratio) {
    return std::min(kHighestDb, 10 * std::log10(ratio));
}

}  // namespace

Separation::Separation(double audioHz, std::size_t block)
    : audioHz_(audioHz),
      spectrum_(Spectrum::Input::Real, std::bit_ceil(block), block),
      window_(blackmanHarris(block)) {}

double Separation::Direction::db() const {
    if (tones.size() >= kFewestTones) return std::max(0.0, tones.percentile(0.5));
    if (programme.size() < kFewestSeparations) return 0;
    return std::max(0.0, programme.percentile(0.95));
}

double Separation::lineAt(std::span<const float> block, double hz) const {
    const std::complex<double> step = std::polar(1.0, -2 * std::numbers::pi * hz / audioHz_);
    std::complex<double> turn = 1;
    std::complex<double> sum = 0;
    const std::size_t count = std::min(block.size(), window_.size());
    for (std::size_t n = 0; n < count; ++n) {
        sum += turn * static_cast<double>(block[n] * window_[n]);
        turn *= step;
    }
    return std::norm(sum);
}

void Separation::judge(std::span<const float> loud, std::span<const float> quiet,
                       Direction& direction, Direction& other) {
    const double binHz = audioHz_ / static_cast<double>(spectrum_.length());
    const SteadyTone tone = findTone(spectrum_.power(loud), binHz, spectrum_.lobeBins());
    const double loudLine = lineAt(loud, tone.hz);
    const double quietLine = lineAt(quiet, tone.hz);
    const AudioPower power = audioPower(loud, quiet);
    const double whole = 10 * std::log10(power.left / std::max(power.right, 1e-9 * power.left));
    const bool isTone = tone.dominanceDb() > kTestToneDb && whole > kOneSidedDb;
    if (isTone && quietLine > 0) {
        direction.tones.add(decibels(loudLine / quietLine));
    } else {
        direction.tones.clear();
    }
    other.tones.clear();
    direction.programme.add(std::max(0.0, std::min(kHighestDb, whole)));
}

void Separation::add(std::span<const float> left, std::span<const float> right) {
    const AudioPower power = audioPower(left, right);
    if (levelDb(std::max(power.left, power.right)) < kQuietBlockDb) return;
    if (power.left >= power.right) {
        judge(left, right, left_, right_);
    } else {
        judge(right, left, right_, left_);
    }
}

}  // namespace hm16::receiver
