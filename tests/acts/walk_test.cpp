// SPDX-License-Identifier: GPL-3.0-or-later
// A walk over all controls of all windows with all that can go wrong around them, life by life.
//
// Here a short stretch by a fixed seed; scripts/walk goes on. HMONITOR_WALK_STEPS is how far,
// HMONITOR_WALK_SEED the first life's seed, one more for each further life.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "tests/acts/life.h"

namespace hmonitor::test {
namespace {

long long walked(const char* name, long long otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atoll(text) : otherwise;
}

TEST(WholeWalk, LeavesTheRackInOrderWhateverIsDone) {
    constexpr int kLife = 600;
    // A walk that is ended early has lost no more than these lives from its count.
    constexpr int kToldEvery = 20;
    const long long wanted = walked("HMONITOR_WALK_STEPS", 6000);
    const long long first = walked("HMONITOR_WALK_SEED", 18);
    long long steps = 0, lives = 0;
    int faults = 0;
    for (; steps < wanted; ++lives) {
        Life life(static_cast<std::uint64_t>(first + lives));
        const std::string fault = life.live(kLife);
        steps += life.steps();
        if (!fault.empty()) {
            ADD_FAILURE() << "seed " << first + lives << ", step " << life.steps() << ": " << fault
                          << "\n"
                          << life.story();
            constexpr int kMost = 10;
            if (++faults >= kMost) break;
        }
        if (wanted > 100000 && lives % kToldEvery == kToldEvery - 1)
            std::printf("%lld steps, next seed %lld\n", steps, first + lives + 1),
                std::fflush(stdout);
    }
    if (wanted > 100000) std::printf("%lld steps, next seed %lld\n", steps, first + lives);
    EXPECT_GE(steps, faults > 0 ? 0 : wanted);
}

}  // namespace
}  // namespace hmonitor::test
