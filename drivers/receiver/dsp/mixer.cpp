// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/mixer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {
namespace {

constexpr std::size_t kLanes = 4;  // samples that are rotated together

}  // namespace

Mixer::Mixer(double turns) : cosines_(2 * kTable), sines_(2 * kTable) {
    setTurns(turns);
}

void Mixer::setTurns(double turns) {
    turns_ = -turns;
    for (std::size_t n = 0; n < kTable; ++n) {
        const double angle = 2 * std::numbers::pi * turns_ * static_cast<double>(n);
        cosines_[2 * n] = cosines_[2 * n + 1] = static_cast<float>(std::cos(angle));
        sines_[2 * n] = sines_[2 * n + 1] = static_cast<float>(std::sin(angle));
    }
}

void Mixer::process(std::span<std::complex<float>> samples) {
    if (turns_ == 0 && phase_ == 0) return;
    while (!samples.empty()) {
        const std::size_t count = std::min(samples.size(), kTable);
        const double angle = 2 * std::numbers::pi * phase_;
        const auto re = static_cast<float>(std::cos(angle));
        const auto im = static_cast<float>(std::sin(angle));
        const std::size_t fours = count / kLanes * kLanes;
        rotate(reinterpret_cast<float*>(samples.data()), cosines_.data(), sines_.data(), re, im,
               fours);
        for (std::size_t n = fours; n < count; ++n)
            samples[n] *=
                std::complex<float>(re, im) * std::complex<float>(cosines_[2 * n], sines_[2 * n]);
        phase_ += turns_ * static_cast<double>(count);
        phase_ -= std::floor(phase_);
        samples = samples.subspan(count);
    }
}

}  // namespace hm16::receiver
