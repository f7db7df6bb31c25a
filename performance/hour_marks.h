// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// An hour mark over a chart; it goes with the chart when that is scrolled.
struct HourMark {
    int label;  ///< number of the label
    int chart;  ///< `Graph1` to `Graph6`
    int hour;
    const char* text;
};

/// Over the upper chart of each of the four wells.
inline constexpr HourMark kHourMarks[] = {
    {21, 1, 0, "0 hs"}, {22, 1, 6, "6 hs"}, {23, 1, 12, "12 hs"}, {24, 1, 18, "18 hs"},
    {25, 2, 0, "0 hs"}, {26, 2, 6, "6 hs"}, {27, 2, 12, "12 hs"}, {28, 2, 18, "18 hs"},
    {29, 3, 0, "0 hs"}, {30, 3, 6, "6 hs"}, {31, 3, 12, "12 hs"}, {32, 3, 18, "18 hs"},
    {33, 4, 0, "0 hs"}, {34, 4, 6, "6 hs"}, {35, 4, 12, "12 hs"}, {36, 4, 18, "18 hs"},
};

}  // namespace hmonitor
