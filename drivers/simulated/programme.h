// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/simulated/station.h"

namespace hm16::simulated {

// The programme of a station at one moment.
struct Programme {
    double left = 0;   // dB; 0 dB is full modulation by both channels
    double right = 0;  // dB
    double phase = 0;  // degrees: 0 right alone, 45 both alike, 90 left alone
    double width = 0;  // level of the difference below that of the sum, dB, positive
    double peak = 0;   // percent of 75 kHz, pilot and RDS included
    double power = 0;  // mean square deviation as a share of a full sine's, 0 to 1
};

// A pure function of seed, station and time in seconds. Speech has syllables and pauses, music a
// beat and phrases, classical music long swells.
Programme programmeAt(const Station& station, std::uint64_t seed, double time);

// The random stream of one figure of a station.
std::uint64_t streamOf(const Station& station, unsigned figure);

}  // namespace hm16::simulated
