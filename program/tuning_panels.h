// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/audio_mode.h"

namespace hmonitor {

/// What a tuning asks of the panels, in the order in which it asks. The tuner knows no form.
class TuningPanels {
 public:
    virtual ~TuningPanels() = default;

    /// Where the tuning bar stands, steps of 100 kHz from 87.5 MHz.
    virtual int bar() = 0;
    virtual void showMode(AudioMode mode) = 0;
    virtual void showResponseArmed(bool armed) = 0;
    /// The first tuning of the program begins.
    virtual void firstTuning() = 0;
    /// A hand on the bar left the memory that was tuned.
    virtual void leaveMemory() = 0;
    /// While the unit retunes nothing reads it.
    virtual void runClocks(bool run) = 0;
    /// A memory key keeps its panel disabled until the unit is tuned.
    virtual void enableTuning(bool enabled) = 0;
    /// The frequency, and what is stored or measured for it.
    virtual void showTuned() = 0;
    /// The figures of the new station.
    virtual void showFigures() = 0;
    /// The first tuning is done: the rack measures.
    virtual void rackStands() = 0;
};

}  // namespace hmonitor
