// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/mixer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {

Mixer::Mixer(double turns) : turns_(-turns), table_(2 * kTable) {
    for (std::size_t n = 0; n < kTable; ++n) {
        const double angle = 2 * std::numbers::pi * turns_ * static_cast<double>(n);
        table_[2 * n] = static_cast<float>(std::cos(angle));
        table_[2 * n + 1] = static_cast<float>(std::sin(angle));
    }
}

void Mixer::process(std::span<std::complex<float>> samples) {
    if (turns_ == 0) return;
    while (!samples.empty()) {
        const std::size_t count = std::min(samples.size(), kTable);
        const double angle = 2 * std::numbers::pi * phase_;
        rotate(reinterpret_cast<float*>(samples.data()), table_.data(),
               static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle)), count);
        phase_ += turns_ * static_cast<double>(count);
        phase_ -= std::floor(phase_);
        samples = samples.subspan(count);
    }
}

}  // namespace hm16::receiver
