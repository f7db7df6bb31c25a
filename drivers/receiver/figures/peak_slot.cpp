// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/peak_slot.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr std::size_t kLanes = 16;

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
        float sum[kLanes] = {};
        float square[kLanes] = {};
        std::size_t n = from;
        for (; n + kLanes <= to; n += kLanes) {
            for (std::size_t lane = 0; lane < kLanes; ++lane) {
                const float value = values[n + lane];
                sum[lane] += value;
                square[lane] += value * value;
            }
        }
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
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

// Height of the parabola through a sample and its neighbours.
double vertex(std::span<const float> values, std::size_t at) {
    const double now = values[at];
    if (at == 0 || at + 1 == values.size()) return now;
    const double before = values[at - 1];
    const double after = values[at + 1];
    const double bend = before - 2 * now + after;
    if (bend == 0) return now;
    const double slope = (after - before) / 2;
    return now - slope * slope / (2 * bend);
}

}  // namespace

double SlotSummary::peakFrom(double carrierHz) const {
    return std::max(highestHz - carrierHz, carrierHz - lowestHz);
}

SlotSummary summarizeSlot(std::span<const float> composite) {
    SlotSummary result;
    if (composite.empty()) return result;
    const auto [low, high] = std::minmax_element(composite.begin(), composite.end());
    result.highestHz = vertex(composite, static_cast<std::size_t>(high - composite.begin()));
    result.lowestHz = vertex(composite, static_cast<std::size_t>(low - composite.begin()));
    const Sums sums = sumsOf(composite.data(), composite.size());
    const auto count = static_cast<double>(composite.size());
    result.meanHz = sums.sum / count;
    result.meanSquare = sums.square / count;
    return result;
}

}  // namespace hm16::receiver
