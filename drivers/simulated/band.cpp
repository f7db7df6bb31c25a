// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/band.h"

#include <algorithm>
#include <cmath>

#include "drivers/simulated/chance.h"
#include "drivers/simulated/programme.h"
#include "drivers/simulated/station.h"

namespace hm16::simulated {

namespace {

constexpr std::uint64_t kFloorStream = 1;
constexpr std::uint64_t kFlickerStream = 2;
// Beyond this distance a station has no effect.
constexpr double kReachKhz = 1200;
// Far from a carrier the receiver's filter and oscillator matter, not the sidebands: this loss at
// 150 kHz, and one dB more for each further 30 kHz.
constexpr double kFilterLoss = 46;
constexpr double kFilterFrom = 150;
constexpr double kFilterSlope = 30;

double toPower(double decibels) {
    return std::pow(10.0, decibels / 10);
}

}  // namespace

double sidebandLoss(double distanceKhz, double deviationKhz) {
    const double distance = std::abs(distanceKhz);
    // Even an unmodulated carrier fills the filter: the width is never below this.
    const double reach = distance / std::max(deviationKhz, 22.0);
    const double filter = kFilterLoss + std::max(0.0, distance - kFilterFrom) / kFilterSlope;
    return std::min(12 * std::pow(reach, 1.6), filter);
}

double bandLevel(std::uint64_t seed, double frequency, double time) {
    const double slope = Chance(seed, kFloorStream).wander(frequency, 13);
    double power = toPower(kNoiseFloor + 2 * slope);
    for (const Station& station : stations()) {
        const double carrier = station.frequency + station.carrierError / 100000;
        const double distance = (frequency - carrier) * 100;
        if (std::abs(distance) > kReachKhz) continue;
        const double deviation = programmeAt(station, seed, time).peak * 0.75;
        power += toPower(station.field - sidebandLoss(distance, deviation));
    }
    const auto cell = static_cast<std::uint64_t>(std::lround(frequency * 4));
    const double flicker = Chance(seed, kFlickerStream + (cell << 8)).wander(time, 0.11);
    return 10 * std::log10(power) + 0.7 * flicker;
}

}  // namespace hm16::simulated
