// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/slot_ring.h"

#include <algorithm>
#include <cstring>

namespace hm16 {

void SlotRing::add(HM16_Slot slot) {
    const std::lock_guard lock(mutex_);
    slot.number = next_++;
    if (slots_.size() < kSlots) {
        slots_.push_back(slot);
        return;
    }
    slots_[oldest_] = slot;
    oldest_ = (oldest_ + 1) % kSlots;
}

void SlotRing::lose(std::uint64_t count) {
    const std::lock_guard lock(mutex_);
    next_ += count;
}

std::uint64_t SlotRing::nextNumber() const {
    const std::lock_guard lock(mutex_);
    return next_;
}

std::int32_t SlotRing::copy(std::uint64_t from, HM16_Slot* out, std::uint32_t slotSize,
                            std::int32_t room, std::uint64_t* next) const {
    if (out == nullptr || next == nullptr || slotSize == 0 || room < 0) return -1;
    const std::size_t filled = std::min<std::size_t>(slotSize, sizeof(HM16_Slot));
    auto* place = reinterpret_cast<unsigned char*>(out);
    const std::lock_guard lock(mutex_);
    // A caller that asks for later slots, as after a new HM_Init, is told where they will begin.
    *next = std::min(from, next_);
    std::int32_t copied = 0;
    for (std::size_t n = 0; n < slots_.size() && copied < room; ++n) {
        const HM16_Slot& slot = slots_[(oldest_ + n) % slots_.size()];
        if (slot.number < from) continue;
        std::memcpy(place, &slot, filled);
        place += slotSize;
        *next = slot.number + 1;
        ++copied;
    }
    return copied;
}

}  // namespace hm16
