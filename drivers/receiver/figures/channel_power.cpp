// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/channel_power.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr std::size_t kLength = 512;
constexpr double kHalfChannelHz = 100e3;
constexpr double kNeighbourFromHz = 135e3;
constexpr double kNeighbourToHz = 225e3;
constexpr double kRemembered = 0.9;  // of each slot's mean: half a second

// Over-modulation alone spreads less than this share to each side.
constexpr double kOwnSidebands = 0.1;

}  // namespace

ChannelPower::ChannelPower(double channelHz)
    : channelHz_(channelHz),
      spectrum_(Spectrum::Input::Complex, kLength, kLength),
      sum_(kLength, 0.0),
      mean_(kLength, 0.0) {}

void ChannelPower::add(std::span<const std::complex<float>> channel) {
    while (!channel.empty()) {
        const std::size_t skipped = std::min(skip_, channel.size());
        skip_ -= skipped;
        channel = channel.subspan(skipped);
        const std::size_t taken = std::min(channel.size(), kLength - held_.size());
        held_.insert(held_.end(), channel.begin(),
                     channel.begin() + static_cast<std::ptrdiff_t>(taken));
        channel = channel.subspan(taken);
        if (held_.size() < kLength) continue;
        const auto power = spectrum_.power(std::span<const std::complex<float>>(held_));
        for (std::size_t k = 0; k < kLength; ++k) sum_[k] += power[k];
        ++looks_;
        held_.clear();
        skip_ = kLength;
    }
}

double ChannelPower::between(const std::vector<double>& power, double fromHz, double toHz) const {
    const double binHz = channelHz_ / static_cast<double>(kLength);
    double sum = 0;
    const auto half = static_cast<long>(kLength / 2);
    for (long k = -half; k < half; ++k) {
        const double low = (static_cast<double>(k) - 0.5) * binHz;
        // A bin that the edge cuts counts with its part inside.
        const double inside = std::min(low + binHz, toHz) - std::max(low, fromHz);
        if (inside <= 0) continue;
        const auto bin = static_cast<std::size_t>(k < 0 ? k + static_cast<long>(kLength) : k);
        sum += power[bin] * inside / binHz;
    }
    return sum;
}

void ChannelPower::endSlot() {
    if (looks_ == 0) return;
    const bool first = inside_ == 0;
    lately_.add(between(sum_, -kHalfChannelHz, kHalfChannelHz) / static_cast<double>(looks_));
    for (std::size_t k = 0; k < kLength; ++k) {
        const double now = sum_[k] / static_cast<double>(looks_);
        mean_[k] = first ? now : kRemembered * mean_[k] + (1 - kRemembered) * now;
        sum_[k] = 0;
    }
    looks_ = 0;
    inside_ = between(mean_, -kHalfChannelHz, kHalfChannelHz);
}

void ChannelPower::forgetSlot() {
    std::fill(sum_.begin(), sum_.end(), 0.0);
    looks_ = 0;
}

double ChannelPower::neighbour() const {
    if (inside_ <= 0 || channelHz_ < 2 * kNeighbourToHz) return 0;
    const double above = between(mean_, kNeighbourFromHz, kNeighbourToHz);
    const double below = between(mean_, -kNeighbourToHz, -kNeighbourFromHz);
    const double oneSided = std::fabs(above - below);
    const double tooMuch = above + below - 2 * kOwnSidebands * inside_;
    return std::max(oneSided, tooMuch) / inside_;
}

}  // namespace hm16::receiver
