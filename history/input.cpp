// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/input.h"

#include <time.h>

namespace history {

namespace {

std::int64_t clockMs(clockid_t clock) {
    ::timespec time = {};
    ::clock_gettime(clock, &time);
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

}  // namespace

Moment Moment::now() {
#if defined(CLOCK_BOOTTIME)
    // Goes on while the machine sleeps: a night's sleep is no step of the wall clock.
    constexpr clockid_t kSteady = CLOCK_BOOTTIME;
#else
    constexpr clockid_t kSteady = CLOCK_MONOTONIC;
#endif
    // A thread that is held between the clocks would see a sleep that was none.
    constexpr std::int64_t kAtOnceMs = 50;
    while (true) {
        const std::int64_t awake = clockMs(CLOCK_MONOTONIC);
        const Moment now{clockMs(CLOCK_REALTIME), clockMs(kSteady), 0};
        if (clockMs(CLOCK_MONOTONIC) - awake > kAtOnceMs) continue;
        return {now.utcMs, now.steadyMs, now.steadyMs - awake};
    }
}

}  // namespace history
