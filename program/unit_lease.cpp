// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/unit_lease.h"

#include <utility>

#include "display/form.h"
#include "program/tuner.h"

namespace hmonitor {

UnitLease::~UnitLease() {
    // When the program ends, whoever ends it closes the unit.
    letGo();
}

void UnitLease::letGo() {
    if (held()) program_.unitInUse = {};
}

bool UnitLease::take() {
    if (held()) return true;
    if (program_.unitInUse.window) return false;
    program_.unitInUse = {&window_, program_.desktop.now()};
    return true;
}

void UnitLease::tuneFor(AudioMode mode) {
    program_.tuner->storeMode(mode);
    program_.tuner->retune();
    frequency_ = program_.tuner->TunedFreq;
}

void UnitLease::giveBack(Back back) {
    if (!held()) return;
    if (back == Back::LeftRight) program_.tuner->storeMode(AudioMode::LeftRight);
    if (const auto wanted = std::exchange(wanted_, std::nullopt)) {
        program_.tuner->tuneTo(*wanted);
    } else {
        program_.tuner->retune();
    }
    letGo();
}

void UnitLease::close(Back back) {
    giveBack(back);
    program_.enableRack();
}

UnitLease::Hold::Hold(Program& program, std::vector<const display::Control*> heard,
                      const display::Form& window)
    : program_(program) {
    for (std::size_t i = 0; i < wereEnabled_.size(); ++i) {
        wereEnabled_[i] = program.rack[i]->enabled;
    }
    program.disableRack();
    program.desktop.queue().pushFilter({std::move(heard), {&window}});
}

UnitLease::Hold::~Hold() {
    program_.desktop.queue().popFilter();
    // Enables only what it disabled itself: a window that was closed inside the run has enabled the
    // rack already.
    for (std::size_t i = 0; i < wereEnabled_.size(); ++i) {
        if (wereEnabled_[i]) program_.rack[i]->enabled = true;
    }
}

}  // namespace hmonitor
