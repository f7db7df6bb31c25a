// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/synth/station_generator.h"

#include <cmath>
#include <cstdint>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

}  // namespace

StationGenerator::StationGenerator(const StationPlan& plan, double rateHz, double offsetHz,
                                   std::uint64_t seed)
    : plan_(plan),
      rateHz_(rateHz),
      offsetHz_(offsetHz),
      composite_(plan, rateHz, seed),
      delay_(static_cast<std::size_t>(std::lround(plan.ray.delaySeconds * rateHz))) {
    // The three samples around the first step of the phase.
    composite_.generate(3, deviation_);
    direct_.assign(delay_, Sample());
}

void StationGenerator::addTo(std::span<Sample> into) {
    composite_.generate(into.size(), deviation_);
    const std::size_t start = direct_.size();
    direct_.reserve(start + into.size());
    const double* f = deviation_.data();
    for (std::size_t n = 0; n < into.size(); ++n) {
        const auto angle = static_cast<float>(kTurn * phase_);
        direct_.emplace_back(std::cos(angle), std::sin(angle));
        // The integral from one sample to the next through four samples: to a millionth at 57 kHz,
        // where a plain sum would raise the high end of the multiplex.
        const double mean = (13 * (f[n + 1] + f[n + 2]) - f[n] - f[n + 3]) / 24;
        phase_ += (mean + offsetHz_) / rateHz_;
        phase_ -= std::floor(phase_);
    }
    deviation_.erase(deviation_.begin(), deviation_.end() - 3);
    const auto amplitude = static_cast<float>(plan_.amplitude);
    const double turn = plan_.ray.phaseDegrees * std::numbers::pi / 180;
    const Sample second(static_cast<float>(plan_.ray.amplitude * std::cos(turn)),
                        static_cast<float>(plan_.ray.amplitude * std::sin(turn)));
    const bool hasRay = plan_.ray.amplitude != 0;
    for (std::size_t n = 0; n < into.size(); ++n) {
        Sample value = direct_[start + n];
        if (hasRay) value += second * direct_[start + n - delay_];
        into[n] += amplitude * value;
    }
    direct_.erase(direct_.begin(), direct_.end() - static_cast<std::ptrdiff_t>(delay_));
}

}  // namespace hm16::receiver
