// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/bell.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <ctime>
#include <thread>

namespace hm16 {

namespace {

using Clock = std::chrono::steady_clock;

static_assert(std::atomic<std::uint32_t>::is_always_lock_free &&
                  sizeof(std::atomic<std::uint32_t>) == 4,
              "the system waits for a plain number of 32 bits");

void pause() {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    __asm__ volatile("yield");
#endif
}

// Looking for the other side's work on one's only processor would keep it from working.
bool hasTwoProcessors() {
    static const bool has = std::thread::hardware_concurrency() > 1;
    return has;
}

timespec spanOf(std::chrono::nanoseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {static_cast<time_t>(seconds.count()), static_cast<long>((time - seconds).count())};
}

}  // namespace

void Patience::looked(bool found) {
    constexpr std::chrono::nanoseconds kLeast{1000};
    constexpr std::chrono::nanoseconds kMost{20000};
    look_ = found ? std::min(look_ * 2, kMost) : std::max(look_ / 2, kLeast);
}

void Bell::ring(std::uint32_t count) {
    count_.store(count, std::memory_order_seq_cst);
    if (sleeps_.load(std::memory_order_seq_cst) == 0) return;
    ::syscall(SYS_futex, &count_, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

bool Bell::lookFor(std::uint32_t old, std::chrono::nanoseconds time) const {
    const auto until = Clock::now() + time;
    do {
        for (int i = 0; i < 16; ++i) {
            if (count() != old) return true;
            pause();
        }
    } while (Clock::now() < until);
    return count() != old;
}

bool Bell::awaitOtherThan(std::uint32_t old, Patience& patience, std::chrono::milliseconds most) {
    if (count() != old) return true;
    if (hasTwoProcessors()) {
        const bool found = lookFor(old, patience.look());
        patience.looked(found);
        if (found) return true;
    }
    const auto until = Clock::now() + most;
    sleeps_.store(1, std::memory_order_seq_cst);
    while (count_.load(std::memory_order_seq_cst) == old) {
        const auto left = until - Clock::now();
        if (left <= left.zero()) break;
        const timespec span = spanOf(left);
        // The system compares once more before it sleeps, so no ring is missed.
        ::syscall(SYS_futex, &count_, FUTEX_WAIT, old, &span, nullptr, 0);
    }
    sleeps_.store(0, std::memory_order_relaxed);
    return count() != old;
}

}  // namespace hm16
