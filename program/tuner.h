// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "program/tuning_panels.h"

namespace hmonitor {

/// Every tuning of the instrument goes through here, whether it comes from a memory, the bar, a
/// mode key, a reset or a finished analysis: it reads what is stored for the new frequency, stops
/// the panels' clocks, retunes the unit and brings every panel up to date.
class Tuner {
 public:
    static constexpr int kLowestFrequency = 875;  ///< 87.5 MHz, where the tuning bar begins

    /// The program's own from here on.
    explicit Tuner(Program& program) : program_(program) { program.tuner = this; }

    /// The panels that tunings are shown on, before the first one.
    void shownOn(TuningPanels* panels) { panels_ = panels; }

    /// Tunes where the bar stands: the way back to normal measuring.
    void retune() { tune(How::Again); }
    /// The bar has moved, by a hand or by a memory. The first time it starts the rack.
    void tuneByBar() { tune(How::ByBar); }

    /// Stores the audio mode for the tunings to come, and shows it.
    void storeMode(AudioMode mode);
    /// The frequency response is not armed any more.
    void disarmResponse();

    /// What the bar stands for at a place, 100 kHz units with the half step.
    double frequencyAt(int bar) const;

    // Under the names that the audio panel shows them by.
    double TunedFreq = 875;  ///< 100 kHz units, may end in .5
    int PanelStarted = 0;    ///< 1 once the first tuning is done
    int ManualTune = 0;      ///< 1: the next move of the bar is a hand's
    int ResponseSeen = 0;    ///< 1 once a move of the bar has looked at the response switch
    SmallText ButtonTune;    ///< "1" while a memory key tunes

 private:
    enum class How { Again, ByBar };
    struct Switches {
        int detector, audioMode, response, logFiles;
    };
    void tune(How how);
    int lookAtBar(int armed);
    Switches readSwitches(int armed, bool first);
    void tuneUnit(const Switches& switches);
    void storeModeLine(AudioMode mode);

    Program& program_;
    TuningPanels* panels_ = nullptr;
};

}  // namespace hmonitor
