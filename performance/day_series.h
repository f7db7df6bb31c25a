// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "display/colour.h"
#include "performance/day_tables.h"

namespace hmonitor {

inline constexpr display::Colour kPageRed{0x0000ff};
inline constexpr display::Colour kPageBlue{0xff0000};

/// One figure of the day as a curve: in which chart of the window its raw values stand, and how
/// the page scales what it clips. y in page units: base - scale * (value + offset).
struct DaySeries {
    int field;   ///< of the log
    int chart;   ///< `Graph1` to `Graph6`
    int column;  ///< of the chart, 0 for the only one
    display::Colour colour;
    float penWidth;  ///< page units
    int offset;
    int highest;  ///< the range is from 0 to this, after the offset
    int base;
    double scale;

    /// Where the page draws a field's value, a whole number of page units.
    std::int32_t pageY(std::string_view text) const;
    /// The coordinates of hours 0 to `lastHour`: "550 1521 971 1447 ".
    std::string coordinates(const DayTables& tables, int lastHour) const;
};

/// In the order in which they are plotted. The levels' band is drawn for 15 dB and scaled to them,
/// but clipped at 20: a level above 5 dB leaves the frame.
inline constexpr DaySeries kDaySeries[] = {
    {1, 1, 0, kPageRed, 70, -25, 125, 4000, 24.8},   // modulation
    {2, 3, 1, kPageBlue, 50, 10, 20, 12400, 133.4},  // first channel
    {3, 3, 2, kPageRed, 70, 10, 20, 12400, 133.4},   // second channel
    {4, 4, 0, kPageBlue, 50, 0, 180, 6800, 11.1},    // stereo phase
    {5, 2, 0, kPageBlue, 50, 0, 5, 4000, 620},       // radiated power
    {7, 5, 0, kPageRed, 70, 0, 300, 6800, 6.7},      // overmodulation
    {9, 6, 1, kPageBlue, 50, 0, 10, 9600, 200},      // inverted phase
    {8, 6, 2, kPageRed, 70, 0, 10, 9600, 200},       // silence
};

/// Where the page draws an hour, 0 to 23.
constexpr int pageX(int hour) {
    return 550 + 421 * hour;
}

}  // namespace hmonitor
