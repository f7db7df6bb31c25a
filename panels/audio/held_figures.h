// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/int16.h"

namespace hmonitor {

/// The phase figure: holds a peak for 51 readings, about 1.5 s, then drops to the reading in one
/// step.
struct PhaseHold {
    Int16 PhaseShown = 0;
    int PhaseHoldTicks = 0;

    /// Takes a figure and returns the one to show.
    int take(int figure) {
        if (figure > PhaseShown) {
            PhaseShown = figure;
            PhaseHoldTicks = 0;
            return figure;
        }
        ++PhaseHoldTicks;
        if (PhaseHoldTicks <= 50) return PhaseShown;
        PhaseShown = figure;
        PhaseHoldTicks = 0;
        return figure;
    }
};

/// The relative power figure: after a drop it holds for 11 updates of 100 ms, then falls by one at
/// every third update.
struct PowerFigure {
    Int16 PowerShown = 0;
    Int16 PowerTicks = 0;

    void take(int figure) {
        if (figure >= PowerShown) {
            PowerShown = figure;
            PowerTicks = 0;
        } else {
            ++PowerTicks;
            if (PowerTicks > 10) fallTo(figure);
        }
        if (PowerShown < 0) PowerShown = 0;
    }

 private:
    void fallTo(int figure) {
        --PowerShown;
        PowerTicks = 8;
        if (PowerShown < figure) {
            PowerShown = figure;
            PowerTicks = 0;
        }
    }
};

}  // namespace hmonitor
