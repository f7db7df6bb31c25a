// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"
#include "program/tuning_panels.h"

namespace hmonitor {

/// Does every tuning of the instrument, whether it is asked for by a memory, the bar, a mode key, a
/// reset or a finished analysis: reads what is stored for the new frequency, stops the panels'
/// timers, tunes the unit and updates every panel.
class Tuner {
 public:
    static constexpr int kLowestFrequency = 875;  ///< 87.5 MHz, the start of the tuning bar

    /// The program's own from here on.
    explicit Tuner(Program& program) : program_(program) { program.tuner = this; }

    /// Sets the panels that show tunings; must be called before the first one.
    void shownOn(TuningPanels* panels) { panels_ = panels; }

    /// Tunes to the position of the bar, back to normal measuring.
    void retune() { tune(How::Again); }
    /// The bar was moved, by the user or by a memory. The first move starts the rack.
    void tuneByBar() { tune(How::ByBar); }

    /// Tunes to another station: its preset with its name, or its frequency as by hand.
    void tuneTo(const WantedStation& station) { panels_->moveTo(station); }

    /// Stores the audio mode for later tunings, and shows it.
    void storeMode(AudioMode mode);
    /// Disarms the frequency response.
    void disarmResponse();

    /// The frequency of a bar position, in units of 100 kHz with the half step.
    double frequencyAt(int bar) const;

    // Named as the audio panel shows them.
    double TunedFreq = 875;  ///< 100 kHz units, may end in .5
    int PanelStarted = 0;    ///< 1 once the first tuning is done
    int ManualTune = 0;      ///< 1: the next move of the bar is the user's
    int ResponseSeen = 0;    ///< 1 once a move of the bar has read the response switch
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
