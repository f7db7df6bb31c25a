// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "drivers/unit/readings.h"

namespace hm16 {

// The latest readings, handed from the thread that measures to the one that calls HM_Data. One
// writer at a time, any number of readers, no locks: a copy costs a few nanoseconds. The writer
// fills the slot that is not on show, so a reader is held up neither by a writer that was
// interrupted in the middle nor by one that never comes back.
class PublishedReadings {
 public:
    // Publishes ordinary readings. If they happen to equal the end mark, which would end a response
    // run, the pilot error is published 1 Hz lower.
    void publish(Readings readings);

    // Publishes `readings` with the end mark in them.
    void publishEndMark(Readings readings);

    // A consistent set of readings, never parts of two.
    Readings latest() const;

 private:
    static constexpr std::size_t kFields = sizeof(Readings) / sizeof(float);
    struct Slot {
        std::atomic<std::uint32_t> sequence{0};
        std::array<std::atomic<float>, kFields> values{};
    };

    void show(const Readings& readings);
    static bool copy(const Slot& slot, Readings& readings);

    std::array<Slot, 2> slots_;
    std::atomic<std::uint32_t> shown_{0};
};

}  // namespace hm16
