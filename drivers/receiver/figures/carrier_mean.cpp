// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/carrier_mean.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr std::size_t kCarrierSlots = 20;
constexpr std::size_t kPartLanes = 16;

}  // namespace

CarrierMean::Part CarrierMean::partOf(std::span<const float> values, double start,
                                      double slotLength) {
    float sums[kPartLanes] = {};
    float firsts[kPartLanes] = {};
    float seconds[kPartLanes] = {};
    float place[kPartLanes] = {};
    const auto middle = static_cast<float>((static_cast<double>(values.size()) - 1) / 2);
    for (std::size_t lane = 0; lane < kPartLanes; ++lane)
        place[lane] = static_cast<float>(lane) - middle;
    std::size_t n = 0;
    for (; n + kPartLanes <= values.size(); n += kPartLanes) {
        for (std::size_t lane = 0; lane < kPartLanes; ++lane) {
            const float value = values[n + lane];
            const float turned = value * place[lane];
            sums[lane] += value;
            firsts[lane] += turned;
            seconds[lane] += turned * place[lane];
            place[lane] += static_cast<float>(kPartLanes);
        }
    }
    Part part;
    part.count = static_cast<double>(values.size());
    part.middle = (start + part.count / 2) / slotLength;
    for (std::size_t lane = 0; n + lane < values.size(); ++lane) {
        sums[lane] += values[n + lane];
        firsts[lane] += values[n + lane] * place[lane];
        seconds[lane] += values[n + lane] * place[lane] * place[lane];
    }
    for (std::size_t lane = 0; lane < kPartLanes; ++lane) {
        part.sum += sums[lane];
        part.first += firsts[lane] / slotLength;
        part.second += seconds[lane] / (slotLength * slotLength);
    }
    part.spread = part.count * (part.count * part.count - 1) / 12 / (slotLength * slotLength);
    return part;
}

void CarrierMean::add(std::span<const float> slot) {
    if (slots_.size() == kCarrierSlots) slots_.pop_front();
    Slot& parts = slots_.emplace_back();
    const auto length = static_cast<double>(slot.size());
    std::size_t from = 0;
    for (std::size_t n = 0; n < kParts; ++n) {
        const std::size_t to = slot.size() * (n + 1) / kParts;
        parts[n] = partOf(slot.subspan(from, to - from), static_cast<double>(from), length);
        from = to;
    }
    settle();
}

// Within one part the weight is approximated by a parabola.
void CarrierMean::settle() {
    const double turn = 2 * std::numbers::pi / static_cast<double>(slots_.size());
    double sum = 0;
    double weights = 0;
    double slotStart = 0;
    for (const Slot& slot : slots_) {
        for (const Part& part : slot) {
            const double angle = turn * (slotStart + part.middle);
            const double cosine = std::cos(angle);
            const double weight = 1 - cosine;
            const double slope = turn * std::sin(angle);
            const double bend = turn * turn * cosine / 2;
            sum += weight * part.sum + slope * part.first + bend * part.second;
            weights += weight * part.count + bend * part.spread;
        }
        slotStart += 1;
    }
    hz_ = weights > 0 ? sum / weights : 0;
}

}  // namespace hm16::receiver
