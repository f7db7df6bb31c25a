// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

#include "drivers/unit/local_time.h"
#include "drivers/unit/settings.h"

namespace hm16::simulated {

// What replaces some readings of a faulty unit.
enum class Garbage { None, NotANumber, Infinity, Huge, Random };

// The settings of the simulated unit, as hm-16.ini gives them. docs/driver.md lists them.
struct Options {
    float version = 1.8f;            // 0: there is no unit
    std::uint64_t seed = 16;         // a different seed gives a different day
    double pace = 1;                 // speed relative to real time
    double levelStep = 1;            // dB; 0 for levels without steps
    std::optional<LocalTime> clock;  // where the unit's clock starts; absent: the system's clock
    double silentAfter = 0;    // seconds of the unit's time until its readings freeze; 0 for never
    long superFailsAfter = 0;  // number of single levels until they fail; 0 for never
    Garbage garbage = Garbage::None;
    long garbageEvery = 50;  // one in so many sets of readings is garbage
    long responsePairs = 8;  // number of results of a response run; the others are missing
};

// Reads the options from `settings`, which collects the faults.
Options readOptions(Settings& settings);

}  // namespace hm16::simulated
