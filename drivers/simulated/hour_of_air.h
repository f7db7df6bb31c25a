// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/simulated/station.h"
#include "drivers/unit/local_time.h"
#include "drivers/unit/readings.h"

namespace hm16::simulated {

// What one hour of the day makes of a station's programme: at night it is quieter, in the morning
// and the evening it is driven harder, now and then it falls silent or a line is connected the
// wrong way round, and the transmitter's power drifts. While a day's log is kept the station lives
// through such days, so that no hour is like the other. A pure function of its arguments.
struct HourOfAir {
    double drive = 1;    // share of the usual deviation
    double power = 1;    // share of the usual radiated power
    double tilt = 0;     // dB by which the left channel is louder
    int silences = 0;    // of the hour
    int inversions = 0;  // stretches out of phase
};

HourOfAir hourOfAir(std::uint64_t seed, const Station& station, const LocalTime& when);

// The readings of a moment of that hour, from the station's usual ones. The field, which is a whole
// number of dB, does not show the power's drift.
void liveThrough(Readings& readings, std::uint64_t seed, const Station& station,
                 const LocalTime& when);

}  // namespace hm16::simulated
