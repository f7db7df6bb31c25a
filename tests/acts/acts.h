// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "display/hand.h"

namespace hmonitor::test {

/// One act of the user, or an event from outside. It is posted to the queue, which decides when it
/// is delivered.
struct Act {
    std::string name;
    std::function<void()> go;
};

/// Everything that can be done to the form: each control in each way that its kind supports, the
/// window's own close, Enter, Escape, help and restoring.
std::vector<Act> actsOn(display::Form& form, display::Hand& hand);

/// Every ordered pair of the list's acts, both inside one call, as a fast user can do.
std::vector<Act> pairsOf(const std::vector<Act>& acts);

}  // namespace hmonitor::test
