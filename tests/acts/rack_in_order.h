// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tests/acts/runs.h"

namespace hmonitor::test {

/// Closes every open window as a user does, and again while one of them waits. Returns which ones
/// do not close; empty when only the rack is left.
std::string closeAll(RunBench& bench);

/// What is wrong with a rack without other windows: it has to measure, and each of its keys to
/// react. Empty if nothing is wrong.
std::string faultOf(RunBench& bench);

/// What is wrong with how the program ended; empty if it ended in good order.
std::string faultOfEnd(RunBench& bench);

}  // namespace hmonitor::test
