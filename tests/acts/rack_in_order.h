// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tests/acts/runs.h"

namespace hmonitor::test {

/// Closes what stands open as a person does, who asks again where it waits. Answers what does not
/// close, empty when the rack stands alone.
std::string closeAll(RunBench& bench);

/// What is wrong with a rack that stands alone: it has to measure, and each of its keys to answer.
/// Empty where nothing is.
std::string faultOf(RunBench& bench);

/// What is wrong with an end of the program: it has to be in good order.
std::string faultOfEnd(RunBench& bench);

}  // namespace hmonitor::test
