// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program.h"
#include "display/form.h"

namespace hmonitor {

/// A form of the program: it reaches the others, the driver and the shared state.
class ProgramForm : public display::Form {
 public:
    ProgramForm(Program& itsProgram, std::string itsName)
        : Form(itsProgram.desktop, std::move(itsName)),
          program(itsProgram),
          driver(itsProgram.driver),
          StationState(itsProgram.StationState) {}

 protected:
    bool inDemoMode() const { return StationState.DemoMode == "si"; }

    Program& program;
    DriverDoor& driver;
    hmonitor::StationState& StationState;
};

}  // namespace hmonitor
