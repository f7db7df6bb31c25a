// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated unit under any calls while its own thread measures; scripts/threads goes on for
// long.
#include "tests/drivers/thread_walk.h"

#include "tests/drivers/simulated_library.h"

namespace {

TEST(ThreadWalk, OfTheSimulatedUnitIsCleanAndItsReadingsAreNumbers) {
    walkBesideItsThread("simulated unit", [](unsigned seed) {
        return std::make_unique<SimulatedLibrary>(
            seed % 2 == 0 ? "pace = 200\n" : "pace = 500\nclock = 2026-03-04 21:59:00\n");
    });
}

}  // namespace
