// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/sound_resampler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr float kFullScaleHz = 75e3F;

// The audio ends at 15 kHz, so the images begin beyond 30: this many taps keep them 90 dB down.
constexpr std::size_t kTaps = 32;
constexpr std::size_t kPlaces = 512;  // between two samples; in between by a straight line

using Row = std::array<float, kTaps>;

// A sinc under a Blackman window, for each place between two samples.
std::vector<Row> interpolators() {
    std::vector<Row> rows(kPlaces + 1);
    for (std::size_t place = 0; place <= kPlaces; ++place) {
        const double part = static_cast<double>(place) / kPlaces;
        for (std::size_t k = 0; k < kTaps; ++k) {
            const double away = static_cast<double>(k) - (kTaps / 2 - 1) - part;
            const double turn = std::numbers::pi * away;
            const double sinc = away == 0 ? 1 : std::sin(turn) / turn;
            const double x = 2 * turn / kTaps;
            rows[place][k] = static_cast<float>(
                sinc * std::max(0.0, 0.42 + 0.5 * std::cos(x) + 0.08 * std::cos(2 * x)));
        }
    }
    return rows;
}

const std::vector<Row>& rows() {
    static const std::vector<Row> made = interpolators();
    return made;
}

float between(const float* from, double part) {
    const double at = part * kPlaces;
    const auto row = static_cast<std::size_t>(at);
    const auto rest = static_cast<float>(at - static_cast<double>(row));
    const Row& here = rows()[row];
    const Row& there = rows()[row + 1];
    float sum = 0;
    for (std::size_t k = 0; k < kTaps; ++k)
        sum += from[k] * (here[k] + rest * (there[k] - here[k]));
    return sum / kFullScaleHz;
}

}  // namespace

SoundResampler::SoundResampler(double audioHz) : step_(audioHz / kSoundHz) {}

void SoundResampler::process(std::span<const float> left, std::span<const float> right,
                             std::vector<StereoSample>& out) {
    left_.insert(left_.end(), left.begin(), left.end());
    right_.insert(right_.end(), right.begin(), right.end());
    while (place_ + kTaps < static_cast<double>(left_.size())) {
        const auto whole = static_cast<std::size_t>(place_);
        const double part = place_ - static_cast<double>(whole);
        out.push_back({between(&left_[whole], part), between(&right_[whole], part)});
        place_ += step_;
    }
    const auto used = std::min(left_.size(), static_cast<std::size_t>(place_));
    left_.erase(left_.begin(), left_.begin() + static_cast<std::ptrdiff_t>(used));
    right_.erase(right_.begin(), right_.begin() + static_cast<std::ptrdiff_t>(used));
    place_ -= static_cast<double>(used);
}

}  // namespace hm16::receiver
