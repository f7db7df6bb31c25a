// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tests/acts/runs.h"

namespace hmonitor::test {

/// What a call finds, in words: its function, the windows that stand, what of their controls can be
/// used and what the keys say, which timers run, who has the unit, and whether a run holds the
/// thread. Two calls that find the same can be told apart by no hand.
std::string kindOfCall(RunBench& bench, const char* function);

/// Of the calls of each kind the first two and the last, by their numbers.
std::vector<int> callsOfEachKind(const std::vector<std::string>& kinds);

}  // namespace hmonitor::test
