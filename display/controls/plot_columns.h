// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "display/colour.h"
#include "display/controls/plot_axis.h"

namespace display {

/// One point of a series, or what lies between a lowest and a highest value with a mean in it.
struct PlotPoint {
    static constexpr float kNothing = std::numeric_limits<float>::quiet_NaN();

    double x = 0;
    float y = kNothing;  ///< not a number: nothing is known there
    float lowest = kNothing, highest = kNothing;
    /// Why it is not known, or not for the whole of its time; 0 where nothing is missing.
    std::uint8_t cause = 0;

    bool known() const { return y == y; }
    static PlotPoint of(double x, float y) { return {x, y, y, y, 0}; }
    static PlotPoint unknown(double x, std::uint8_t cause) {
        return {x, kNothing, kNothing, kNothing, cause};
    }
};

/// A curve. Points rise in x.
struct PlotSeries {
    std::vector<PlotPoint> points;
    /// How long a point stands for. What no point stands for is a hole whose cause is `missing`.
    /// With 0 a curve leads from point to point; only points that are not known interrupt it.
    double each = 0;
    std::uint8_t missing = 0;
    /// Where something is known of at all: beyond it there is neither curve nor hole. Of no length:
    /// from the first point to the last.
    double from = 0, to = 0;
    Colour colour = kCyan;
};

/// What a column of the picture shows of a series.
struct PlotColumn {
    float lowest = 0, highest = 0;  ///< of all that is in it
    float low = 0, high = 0;        ///< of the curve alone
    bool known = false;             ///< the four above count
    bool joins = false;             ///< the curve comes into it from the column before
    bool told = false;              ///< something stands there: a curve, a hole or both
    /// The cause of the longest part that is not known; 0 where all is known.
    std::uint8_t cause = 0;

    bool hole() const { return told && !known; }
};

/// Lowest and highest of each of so many columns. Costs one look at each point in the range of the
/// axis, however many columns there are.
std::vector<PlotColumn> columnsOf(const PlotSeries& series, const PlotAxis& x, int columns);

}  // namespace display
