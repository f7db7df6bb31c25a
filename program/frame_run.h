// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/timer.h"
#include "program/level_sink.h"
#include "program/program.h"

namespace hmonitor {

/// Hands the levels of a round out of what the unit has swept so far.
void readSwept(DriverDoor& driver, LevelSink& sink);

/// A run by sweep frames: the unit sweeps by itself, and at each tick of a clock the run looks
/// whether a frame has come. It never holds the thread.
class FrameRun {
 public:
    FrameRun(Program& program, display::Timer& clock, LevelSink& sink)
        : program_(program), clock_(clock), sink_(sink) {}

    /// The unit sweeps from there up to there (100 kHz units) in steps (kHz, 0 for its own), and
    /// frames are looked for.
    void start(float from, float to, int stepKhz);
    /// The next part of the same run.
    void ask(float from, float to, int stepKhz);
    /// Halts the unit in the middle of a frame. The run goes on: without a new word no frame would
    /// ever come, so the next look asks for the same one again.
    void halt();
    /// No frame is looked for any more. The unit still sweeps.
    void stop() { clock_.enabled = false; }

    bool running() const { return clock_.enabled; }
    /// A frame is being worked on.
    bool inWork() const { return inWork_; }
    /// What the clock's tick does.
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
