// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace history {

/// What happened. The numbers are stored in files, so they never change.
enum class EventKind : std::uint8_t {
    Start = 1,
    Stop = 2,
    Tuned = 3,
    UnitLost = 4,
    UnitFound = 5,
    Gap = 6,
    ClockStepped = 7,
    Demo = 8,
    FieldCorrection = 9,
    Away = 10,     ///< an analysis takes the unit
    Lost = 11,     ///< seconds that could not be written
    Damaged = 12,  ///< a damaged file was set aside
    Asleep = 13,   ///< the machine slept: nothing was recorded
    Held = 14      ///< the program was stopped: nothing was recorded
};
inline constexpr EventKind kLastEventKind = EventKind::Held;

struct Event {
    std::int64_t t = 0;  ///< seconds since 1970, UTC
    int station = 0;     ///< kHz; 0: no station
    EventKind kind = EventKind::Start;
    std::string text;  ///< numbers and names, no sentence: "detector 1, mode 0", "-3600 s"

    auto operator<=>(const Event&) const = default;
};

}  // namespace history
