// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

#include "drivers/unit/local_time.h"
#include "drivers/unit/settings.h"

namespace hm16::simulated {

// What stands in for some of the readings of a unit that is out of order.
enum class Garbage { None, NotANumber, Infinity, Huge, Random };

// The settings of the simulated unit, as hm-16.ini gives them. docs/driver.md lists them.
struct Options {
    float version = 1.8f;            // 0: no unit answers
    std::uint64_t seed = 16;         // another seed is another day on the band
    double pace = 1;                 // how many times faster than life all of it goes
    double levelStep = 1;            // dB; 0 for levels without steps
    std::optional<LocalTime> clock;  // where the unit's clock starts; absent: the system's clock
    double silentAfter = 0;          // seconds of the unit's time until it falls silent; 0 never
    long superFailsAfter = 0;        // number of single levels until they fail; 0 never
    Garbage garbage = Garbage::None;
    long garbageEvery = 50;  // every so many-th set of readings is garbage
    long responsePairs = 8;  // results that a response run gives; the others are missing
};

// Takes the options out of `settings`; faults stand there afterwards.
Options readOptions(Settings& settings);

}  // namespace hm16::simulated
