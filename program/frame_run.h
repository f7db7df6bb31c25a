// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/timer.h"
#include "program/level_sink.h"
#include "program/program.h"

namespace hmonitor {

/// Gives the sink the levels of a round, from what the unit has swept so far.
void readSwept(DriverDoor& driver, LevelSink& sink);

/// A run on a unit that sweeps by itself: at each tick of a timer the run checks whether a new
/// frame has arrived. It never holds the thread.
class FrameRun {
 public:
    FrameRun(Program& program, display::Timer& clock, LevelSink& sink)
        : program_(program), clock_(clock), sink_(sink) {}

    /// Starts a sweep over a range (units of 100 kHz) in steps (kHz, 0 for the unit's own), and the
    /// checks for frames.
    void start(float from, float to, int stepKhz);
    /// Starts the next part of the same run.
    void ask(float from, float to, int stepKhz);
    /// Stops the unit in the middle of a frame, but not the run. Since no frame would come then,
    /// the next check starts the same sweep again.
    void halt();
    /// Ends the checks for frames. The unit still sweeps.
    void stop() { clock_.enabled = false; }

    bool running() const { return clock_.enabled; }
    /// True while a frame is being processed.
    bool inWork() const { return inWork_; }
    /// Called at each tick of the timer.
    void look();

 private:
    Program& program_;
    display::Timer& clock_;
    LevelSink& sink_;
    struct {
        float from = 0, to = 0;
        int stepKhz = 0;
    } asked_;
    bool halted_ = false;
    bool inWork_ = false;
};

}  // namespace hmonitor
