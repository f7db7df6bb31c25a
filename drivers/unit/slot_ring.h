// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

#include "drivers/hm16_more.h"

namespace hm16 {

// The duration of a slot in seconds.
inline constexpr double kUnitSlotSeconds = 0.05;

// The slots of the last 30 seconds, passed from the measuring thread to the thread that asks for
// them. The lock is held only while slots are copied.
class SlotRing {
 public:
    static constexpr std::size_t kSlots = 600;

    // Adds a slot, which gets the next number.
    void add(HM16_Slot slot);

    // Notes lost slots: the next number is higher by so many.
    void lose(std::uint64_t count);

    // The number of the next slot.
    std::uint64_t nextNumber() const;

    // Implements HM16_FiguresV1::slots for the tuned station.
    std::int32_t copy(std::uint64_t from, HM16_Slot* out, std::uint32_t slotSize, std::int32_t room,
                      std::uint64_t* next) const;

 private:
    mutable std::mutex mutex_;
    std::vector<HM16_Slot> slots_;  // a ring buffer once it is full; numbers rise from `oldest_` on
    std::size_t oldest_ = 0;
    std::uint64_t next_ = 0;
};

}  // namespace hm16
