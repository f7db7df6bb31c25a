// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/int16.h"

namespace hmonitor {

/// The modulation bar: rises at once, falls by at most 2 percent at each tick.
struct ModulationBar {
    float ModBarValue = 0;  ///< position of the bar in percent

    float jumpTo(float percent) { return ModBarValue = percent; }
    float follow(float percent) {
        if (percent < ModBarValue - 2) percent = ModBarValue - 2;
        return ModBarValue = percent;
    }
};

/// The held readouts of the modulation: a peak stays for 21 ticks of 100 ms, then the reading falls
/// by 5 percent every third tick until it meets the live value.
struct ModulationHold {
    float PeakHoldValue = 0;  ///< percent shown
    Int16 PeakHoldCount = 0;  ///< ticks since the peak was reached
    float PeakHoldKHz = 0;    ///< the same in kHz

    /// 75 kHz of deviation are 100 percent.
    static float kHzOf(float percent) { return percent / 100 * 75; }

    /// Takes one live value in percent; returns true when the readouts are to be written.
    bool take(float live) {
        if (live >= PeakHoldValue) {
            PeakHoldValue = live;
            PeakHoldKHz = kHzOf(live);
            PeakHoldCount = 0;
            return true;
        }
        ++PeakHoldCount;
        if (PeakHoldCount <= 20) return false;
        PeakHoldCount = 18;
        PeakHoldValue -= 5;
        if (PeakHoldValue < live) {
            PeakHoldValue = live;
            PeakHoldCount = 0;
        }
        PeakHoldKHz = kHzOf(PeakHoldValue);
        // The kHz figure is computed before the clamp, so it may be slightly negative once.
        if (PeakHoldValue < 0) PeakHoldValue = 0;
        return true;
    }
};

}  // namespace hmonitor
