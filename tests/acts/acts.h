// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "display/hand.h"

namespace hmonitor::test {

/// One thing that a person does, or that comes from outside. It is posted: when it comes through,
/// the queue decides.
struct Act {
    std::string name;
    std::function<void()> go;
};

/// All that can be done to the form: each control in each way that its kind knows, the window's
/// own close, Enter, Escape, help and unfolding.
std::vector<Act> actsOn(display::Form& form, display::Hand& hand);

/// Each act of the list behind each, as quick fingers do both inside one call.
std::vector<Act> pairsOf(const std::vector<Act>& acts);

}  // namespace hmonitor::test
