// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "program/level_sink.h"
#include "program/unit_lease.h"

namespace hmonitor {

/// A run that measures point by point: it holds the thread until its end. Each level lets events
/// through once, and there the run hears the controls that it was given.
class PointRun {
 public:
    PointRun(Program& program, const UnitLease& lease, std::vector<const display::Control*> heard)
        : program_(program), lease_(lease), heard_(std::move(heard)) {}

    enum class End { Done, Stopped, UnitFailed };

    /// One round, up to a stop, which is heard before each point. `standing` is the level that
    /// stands before the first (see LevelSink::before). The sink's rounds are not announced.
    End measure(LevelSink& sink, float standing = 0);
    /// Round after round, each announced, until it is stopped or the unit fails. A round in which
    /// the stop came does not end.
    End measureOnAndOn(LevelSink& sink);

    /// For what the run hears while it measures; each start forgets it.
    void stop() { stopped_ = true; }
    bool running() const { return running_; }

 private:
    class Running;
    End round(LevelSink& sink, float& level);

    Program& program_;
    const UnitLease& lease_;
    std::vector<const display::Control*> heard_;
    bool stopped_ = false;
    bool running_ = false;
};

}  // namespace hmonitor
