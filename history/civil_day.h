// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/zone_offset.h"

namespace history {

/// A calendar day in the machine's time zone; it has 23, 24 or 25 hours.
struct CivilDay {
    int year = 1970;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31

    auto operator<=>(const CivilDay&) const = default;

    /// "2026-11-21".
    std::string text() const;
    static std::optional<CivilDay> parse(std::string_view text);
    /// The day that a second since 1970 (UTC) belongs to.
    static CivilDay of(std::int64_t t);
};

/// The first second of the day of `t`, and the first second after it.
struct DayBounds {
    std::int64_t begin = 0;
    std::int64_t end = 0;
};
DayBounds boundsOfDay(std::int64_t t);

using hmonitor::zoneOffset;
/// The zone's short name at `t`, as "-03" or "CET".
std::string zoneName(std::int64_t t);

}  // namespace history
