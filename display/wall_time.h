// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

namespace display {

/// The wall clock: a moment in UTC, and the zone's offset at that moment. Unlike `Desktop::now()`
/// it may be set.
struct WallTime {
    std::chrono::sys_time<std::chrono::milliseconds> utc{};
    std::chrono::seconds fromUtc{0};  ///< the zone's time less UTC, at that moment
    std::string zone;                 ///< as the system calls it: "Europe/Madrid"
};

}  // namespace display
