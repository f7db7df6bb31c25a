// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/audio_mode.h"

namespace hmonitor {

/// A station that is tuned from a window of its own, not by the rack's keys.
struct WantedStation {
    double frequency = 0;  ///< 100 kHz units, with the half step
    int memory = 0;        ///< the preset that it is, 1 to 16; 0 for none
};

/// What a tuning needs from the panels, in the order of its calls. The tuner knows no form.
class TuningPanels {
 public:
    virtual ~TuningPanels() = default;

    /// The position of the tuning bar, in steps of 100 kHz from 87.5 MHz.
    virtual int bar() = 0;
    /// Moves it to a station, which tunes; or tunes the station's preset.
    virtual void moveTo(const WantedStation& station) = 0;
    virtual void showMode(AudioMode mode) = 0;
    virtual void showResponseArmed(bool armed) = 0;
    /// The first tuning of the program begins.
    virtual void firstTuning() = 0;
    /// The user moved the bar away from the tuned memory.
    virtual void leaveMemory() = 0;
    /// Stops all readers of the unit while it is tuned.
    virtual void runClocks(bool run) = 0;
    /// The panel of a memory key stays disabled until the unit is tuned.
    virtual void enableTuning(bool enabled) = 0;
    /// Shows the frequency, and what is stored or was measured for it.
    virtual void showTuned() = 0;
    /// Updates the figures for the new station.
    virtual void showFigures() = 0;
    /// The first tuning is done: the rack measures.
    virtual void rackStands() = 0;
};

}  // namespace hmonitor
