// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

namespace display {

/// What the wall clock says: a moment in UTC, and what the machine's zone makes of it there. It may
/// step, unlike `Desktop::now()`.
struct WallTime {
    std::chrono::sys_time<std::chrono::milliseconds> utc{};
    std::chrono::seconds fromUtc{0};  ///< the zone's time less UTC, at that moment
    std::string zone;                 ///< as the system calls it: "Europe/Madrid"
};

}  // namespace display
