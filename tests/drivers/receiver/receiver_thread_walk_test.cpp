// SPDX-License-Identifier: GPL-3.0-or-later
// The receiver under any calls while its own thread measures; scripts/threads goes on for long.
#include "tests/drivers/receiver/receiver_library.h"
#include "tests/drivers/thread_walk.h"

namespace {

TEST(ReceiverThreadWalk, IsCleanAndItsReadingsAreNumbers) {
    walkBesideItsThread("receiver", [](unsigned seed) {
        return std::make_unique<ReceiverLibrary>(
            seed % 2 == 0 ? "source = synthetic\nscene = station\nrate_hz = 960000\npace = fast\n"
                          : "source = synthetic\nscene = band\nrate_hz = 960000\npace = real\n");
    });
}

}  // namespace
