// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/distortion.h"

#include <bit>
#include <cmath>

#include "drivers/receiver/figures/audio_power.h"

namespace hm16::receiver {
namespace {

constexpr double kSteadySeconds = 0.5;
constexpr double kDominantDb = 30;
constexpr double kQuietDb = -50;

}  // namespace

ToneWatch::ToneWatch(double audioHz)
    : stretch_(static_cast<std::size_t>(kSteadySeconds * audioHz)),
      hop_(stretch_ / 2),
      audioHz_(audioHz),
      spectrum_(Spectrum::Input::Real, std::bit_ceil(stretch_), stretch_) {}

bool ToneWatch::add(std::span<const float> left, std::span<const float> right) {
    left_.insert(left_.end(), left.begin(), left.end());
    right_.insert(right_.end(), right.begin(), right.end());
    if (left_.size() < stretch_) return false;
    const AudioPower power = audioPower(left_, right_);
    const auto& loud = power.left >= power.right ? left_ : right_;
    const double binHz = audioHz_ / static_cast<double>(spectrum_.length());
    tone_ = findTone(spectrum_.power(std::span<const float>(loud)), binHz, spectrum_.lobeBins());
    if (levelDb(tone_.meanSquare) < kQuietDb) tone_ = {};
    const auto used = static_cast<std::ptrdiff_t>(left_.size() - (stretch_ - hop_));
    left_.erase(left_.begin(), left_.begin() + used);
    right_.erase(right_.begin(), right_.begin() + used);
    return true;
}

void ToneWatch::forgetStretch() {
    left_.clear();
    right_.clear();
}

double ToneWatch::distortionPercent() const {
    if (!tone_.harmonicsInBand || tone_.dominanceDb() < kDominantDb) return 0;
    return 100 * std::sqrt(tone_.harmonics / tone_.meanSquare);
}

}  // namespace hm16::receiver
