// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/slot_moments.h"

#include <algorithm>
#include <cstddef>

namespace hm16::receiver {
namespace {

constexpr std::size_t kMomentLanes = 16;

struct Sums {
    double sum;
    double square;
};

Sums sumsOf(const float* values, std::size_t count) {
    // Short stretches in float, their sums in double: fast and exact to a part in a million.
    constexpr std::size_t kStretch = 512;
    Sums total{0, 0};
    for (std::size_t from = 0; from < count; from += kStretch) {
        const std::size_t to = std::min(count, from + kStretch);
        float sum[kMomentLanes] = {};
        float square[kMomentLanes] = {};
        std::size_t n = from;
        for (; n + kMomentLanes <= to; n += kMomentLanes) {
            for (std::size_t lane = 0; lane < kMomentLanes; ++lane) {
                const float value = values[n + lane];
                sum[lane] += value;
                square[lane] += value * value;
            }
        }
        for (std::size_t lane = 0; lane < kMomentLanes; ++lane) {
            total.sum += sum[lane];
            total.square += square[lane];
        }
        for (; n < to; ++n) {
            total.sum += values[n];
            total.square += static_cast<double>(values[n]) * values[n];
        }
    }
    return total;
}

}  // namespace

SlotMoments momentsOf(std::span<const float> composite) {
    if (composite.empty()) return {};
    const Sums sums = sumsOf(composite.data(), composite.size());
    const auto count = static_cast<double>(composite.size());
    return {sums.sum / count, sums.square / count};
}

}  // namespace hm16::receiver
