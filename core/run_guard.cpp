// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/run_guard.h"

#include "display/form.h"

namespace hmonitor {

RunGuard::RunGuard(Program& program, std::vector<const display::Control*> ownControls,
                   std::vector<const display::Form*> ownWindows)
    : program_(program) {
    for (std::size_t i = 0; i < wereEnabled_.size(); ++i) {
        wereEnabled_[i] = program.rack[i]->enabled;
    }
    program.disableRack();
    program.desktop.queue().pushFilter({std::move(ownControls), std::move(ownWindows)});
}

RunGuard::~RunGuard() {
    program_.desktop.queue().popFilter();
    // Only what it disabled itself: a window that closed inside the run has given the rack back
    // already, and that stands.
    for (std::size_t i = 0; i < wereEnabled_.size(); ++i) {
        if (wereEnabled_[i]) program_.rack[i]->enabled = true;
    }
}

}  // namespace hmonitor
