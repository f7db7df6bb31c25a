// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/value_axis.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace hmonitor {

namespace {

using history::Band;

struct Extent {
    double lowest = 0;
    double highest = 0;
    bool any = false;

    void take(double value) {
        lowest = any ? std::min(lowest, value) : value;
        highest = any ? std::max(highest, value) : value;
        any = true;
    }
    void take(std::span<const Band> bands) {
        for (const Band& band : bands) {
            if (band.knownMs <= 0) continue;
            take(static_cast<double>(band.lowest));
            take(static_cast<double>(band.highest));
        }
    }
    double span() const { return highest - lowest; }
};

/// The round step of about five parts.
double roundStep(double span) {
    const double wanted = span / 5;
    const double decade = std::pow(10.0, std::floor(std::log10(wanted)));
    for (const double round : {1.0, 2.0, 5.0}) {
        if (round * decade >= wanted) return round * decade;
    }
    return 10 * decade;
}

/// A bound of what is good is shown where the values come as near to it as they are wide.
void takeBound(Extent& extent, double bound) {
    if (!std::isfinite(bound)) return;
    const double near = std::max(extent.span(), std::abs(bound) * 0.15);
    if (bound > extent.highest ? bound - extent.highest <= near : extent.lowest - bound <= near)
        extent.take(bound);
}

}  // namespace

display::PlotAxis valueAxis(const figures::Figure& figure, std::span<const Band> shown,
                            std::span<const Band> beside) {
    const auto lowestAtAll = static_cast<double>(figure.range.lowest);
    const auto highestAtAll = static_cast<double>(figure.range.highest);
    Extent extent;
    extent.take(shown);
    extent.take(beside);
    if (!extent.any) {
        extent.take(lowestAtAll);
        extent.take(highestAtAll);
    } else {
        takeBound(extent, static_cast<double>(figure.good.lowest));
        takeBound(extent, static_cast<double>(figure.good.highest));
    }
    // What stands still is seen in its own surroundings, not as the noise of its last digit.
    const double least =
        std::max(static_cast<double>(figure.step) * 40, (highestAtAll - lowestAtAll) * 0.01);
    const double wanted = std::max(extent.span() * 1.1, least);
    const double middle = (extent.lowest + extent.highest) / 2;
    const double step = roundStep(wanted);
    const std::string_view unit = figure.unit;
    return {unit.starts_with("dB") ? display::AxisKind::Decibel : display::AxisKind::Linear,
            std::floor((middle - wanted / 2) / step + 1e-9) * step,
            std::ceil((middle + wanted / 2) / step - 1e-9) * step};
}

}  // namespace hmonitor
