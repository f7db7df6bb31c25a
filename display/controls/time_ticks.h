// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "display/controls/plot_axis.h"

namespace display {

/// How the clock on the wall reads a moment.
struct WallClock {
    /// Seconds that it is ahead of UTC, at a second since 1970. Without it: UTC.
    std::function<int(std::int64_t)> ahead;
    /// The short name of a month, 0 is January. Without it: its number.
    std::function<std::string(int)> month;

    int aheadAt(std::int64_t t) const { return ahead ? ahead(t) : 0; }
    /// The moment at which it reads so many seconds since its own 1970; of a reading that it has
    /// twice the later moment, of one that it leaves out the moment of its step.
    std::int64_t momentOf(std::int64_t reading) const;
};

/// Lines of a time axis at round times of the wall clock, at most so many: from each second to each
/// tenth year. The words are as fine as the step: "14:05:10", "14:05", "21 Nov", "Nov", "2026";
/// where a day begins among hours its date stands, where a year begins among months its number.
std::vector<PlotTick> timeTicks(const PlotAxis& axis, int atMost, const WallClock& clock);

}  // namespace display
