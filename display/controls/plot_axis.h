// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace display {

enum class AxisKind {
    Linear,
    Log,      ///< both ends are over 0
    Decibel,  ///< of values that are dB already: lines at whole steps of 1, 2, 5, 10, 20 dB
    Moments   ///< milliseconds since 1970, UTC
};

/// One axis of a plot: the shown range of values, and where each of them lies.
struct PlotAxis {
    AxisKind kind = AxisKind::Linear;
    double lowest = 0;
    double highest = 100;
    bool operator==(const PlotAxis&) const = default;

    double span() const { return highest - lowest; }
    /// 0 at the lowest value, 1 at the highest; beyond them outside of 0 to 1. A logarithmic axis
    /// puts what is not over 0 far below its foot.
    double shareOf(double value) const;
    double valueAt(double share) const;
};

/// A line of the grid.
struct PlotTick {
    double at = 0;
    std::string words;  ///< beside the line; empty for none
    bool operator==(const PlotTick&) const = default;
};

/// Lines at round values, at most so many, with their numbers: with a decimal point in every locale
/// and as many decimals as their distance needs. Of a logarithmic axis its decades, and where they
/// leave room their 2 and 5 too. For a time axis see time_ticks.h.
std::vector<PlotTick> roundTicks(const PlotAxis& axis, int atMost);

}  // namespace display
