// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include "core/int16.h"

namespace hmonitor {

/// Level readings are dB plus 64.
inline constexpr int kLevelScale = 64;

/// The level figure of one channel: the highest of five readings; the sixth is not used.
struct LevelWindow {
    Int16 windowMax = 0;

    /// The figure in dB of the finished window; the next window starts with the lowest value.
    int close() {
        const int figure = windowMax - kLevelScale;
        windowMax = 0;
        return figure;
    }
    void take(int reading) {
        if (reading > windowMax) windowMax = reading;
    }
};

/// A level bar of 62 elements from -25 to +5 dB, two a dB, 0 dB at element 50, with its peak mark.
struct LevelBar {
    static constexpr int kElements = 62;
    static constexpr int kRed = 50;  ///< elements above are red

    int bar = 0;   ///< lit up to here
    int peak = 0;  ///< element of the peak mark

    /// Takes a reading on the +64 scale; returns true when the mark moved up to the top of the bar.
    bool take(int reading) {
        bar = 2 * (std::clamp(reading, 39, 69) - 39);
        if (peak > bar) return false;
        peak = bar + 1;
        return true;
    }

    /// Lowers the mark by one element if it is above the bar; returns true when it moved.
    bool fall() {
        if (peak <= bar) return false;
        --peak;
        return true;
    }
};

}  // namespace hmonitor
