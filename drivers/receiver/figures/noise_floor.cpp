// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/noise_floor.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/figures/audio_power.h"

namespace hm16::receiver {
namespace {

constexpr std::size_t kFewestBlocks = 20;
constexpr double kLowestDb = -95;

}  // namespace

double NoiseFloor::db() const {
    if (blocks_.size() < kFewestBlocks) return 0;
    const double meanSquare = blocks_.percentile(0.05);
    constexpr double kReference = 67.5e3 * 67.5e3 / 2;
    const double share = meanSquare / kReference;
    return share > 0 ? std::max(kLowestDb, 10 * std::log10(share)) : kLowestDb;
}

}  // namespace hm16::receiver
