// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace hm16 {

// How long who waits looks before it sleeps. Calls come in bursts, and a sleep costs more than a
// call; but where both sides have to share a processor, or a rest goes before each call, looking is
// in vain. So it grows where it helped and shrinks where it did not.
class Patience {
 public:
    std::chrono::nanoseconds look() const { return look_; }
    void looked(bool found);

 private:
    std::chrono::nanoseconds look_{20000};
};

// A number in memory that two processes share; one side counts it up, the other waits for it.
class Bell {
 public:
    std::uint32_t count() const { return count_.load(std::memory_order_acquire); }

    // Wakes who waits.
    void ring(std::uint32_t count);

    // Waits while the count is still `old`: looks for a moment, then sleeps. False when `most` went
    // by.
    bool awaitOtherThan(std::uint32_t old, Patience& patience, std::chrono::milliseconds most);

 private:
    bool lookFor(std::uint32_t old, std::chrono::nanoseconds time) const;

    // In cache lines of their own: each is written by one side while the other one reads.
    alignas(64) std::atomic<std::uint32_t> count_{0};
    alignas(64) std::atomic<std::uint32_t> sleeps_{0};
};

}  // namespace hm16
