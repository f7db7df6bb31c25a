// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "core/program.h"

namespace hmonitor {

/// Stands while a long run holds the thread. The four rack panels are disabled, and what comes
/// through inside the driver's calls is the run's own keys and scroll bars, closing of its own
/// windows, moving windows, paint and timers. Enables again what it disabled on every way out.
class RunGuard {
 public:
    RunGuard(Program& program, std::vector<const display::Control*> ownControls,
             std::vector<const display::Form*> ownWindows);
    ~RunGuard();
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;

 private:
    Program& program_;
    std::array<bool, 4> wereEnabled_{};
};

}  // namespace hmonitor
