// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/program.h"

#include "display/form.h"

namespace hmonitor {

void Program::enableRack() {
    for (display::Form* panel : rack) panel->enabled = true;
}

void Program::disableRack() {
    for (display::Form* panel : rack) panel->enabled = false;
}

}  // namespace hmonitor
