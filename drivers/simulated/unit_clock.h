// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

#include "drivers/simulated/options.h"
#include "drivers/unit/local_time.h"

namespace hm16::simulated {

// The simulated unit's time: seconds since it was opened and the wall clock of its place, both
// faster than life by the pace.
class UnitClock {
 public:
    explicit UnitClock(const Options& options);

    // Seconds of the unit's time.
    double seconds() const;
    LocalTime wall() const { return wallAt(seconds()); }
    LocalTime wallAt(double seconds) const;
    // Nanoseconds since 1970 UTC.
    std::int64_t utcAt(double seconds) const;

    // How long something that takes `seconds` of the unit's time really takes.
    std::chrono::nanoseconds real(double seconds) const;

 private:
    double pace_;
    std::chrono::steady_clock::time_point opened_;
    std::chrono::system_clock::time_point wallOpened_;
};

}  // namespace hm16::simulated
