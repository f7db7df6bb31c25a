// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/audio_power.h"

#include <cstddef>

namespace hm16::receiver {

AudioPower audioPower(std::span<const float> left, std::span<const float> right) {
    constexpr std::size_t kLanes = 8;
    const std::size_t count = left.size();
    if (count == 0) return {};
    double sums[3] = {};
    std::size_t n = 0;
    float ll[kLanes] = {};
    float rr[kLanes] = {};
    float lr[kLanes] = {};
    for (; n + kLanes <= count; n += kLanes) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const float l = left[n + lane];
            const float r = right[n + lane];
            ll[lane] += l * l;
            rr[lane] += r * r;
            lr[lane] += l * r;
        }
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        sums[0] += ll[lane];
        sums[1] += rr[lane];
        sums[2] += lr[lane];
    }
    for (; n < count; ++n) {
        sums[0] += static_cast<double>(left[n]) * left[n];
        sums[1] += static_cast<double>(right[n]) * right[n];
        sums[2] += static_cast<double>(left[n]) * right[n];
    }
    const auto divisor = static_cast<double>(count);
    return {sums[0] / divisor, sums[1] / divisor, sums[2] / divisor};
}

}  // namespace hm16::receiver
