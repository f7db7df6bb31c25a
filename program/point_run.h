// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>
#include <vector>

#include "program/level_sink.h"
#include "program/unit_lease.h"

namespace hmonitor {

/// A run that measures point by point and holds the thread until its end. Each measurement lets
/// events through once; the controls given to the run get their input then.
class PointRun {
 public:
    PointRun(Program& program, const UnitLease& lease, std::vector<const display::Control*> heard)
        : program_(program), lease_(lease), heard_(std::move(heard)) {}

    enum class End { Done, Stopped, UnitFailed };

    /// Measures one round, until it is stopped; a stop is noticed before the next point. `standing`
    /// is the level to use before the first one (see LevelSink::before). The sink is not told of
    /// the round's begin.
    End measure(LevelSink& sink, float standing = 0);
    /// Measures round after round, telling the sink of each, until it is stopped or the unit fails.
    /// A stopped round does not end.
    End measureOnAndOn(LevelSink& sink);

    /// Called by the controls of the run; each start clears it.
    void stop() { stopped_ = true; }
    bool running() const { return running_; }

 private:
    class Running;
    End round(LevelSink& sink, float& level);
    /// By its own key, or because the program is to end.
    bool isStopped() const { return stopped_ || program_.desktop.endWanted(); }

    Program& program_;
    const UnitLease& lease_;
    std::vector<const display::Control*> heard_;
    bool stopped_ = false;
    bool running_ = false;
};

}  // namespace hmonitor
