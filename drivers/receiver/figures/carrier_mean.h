// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <deque>
#include <span>

namespace hm16::receiver {

// The carrier's deviation: the mean of the multiplex over one second, weighted with a raised
// cosine. With even weights a strong tone of 30 Hz would change it by hundreds of Hz. The weight
// also changes within a slot: otherwise every tone near a multiple of the slots' rate would beat.
class CarrierMean {
 public:
    // The multiplex of one slot in Hz; all slots are equally long.
    void add(std::span<const float> slot);

    // The mean of the last second; 0 before anything came.
    double hz() const { return hz_; }

 private:
    static constexpr std::size_t kParts = 20;

    // Moments about the part's middle; distances from it are in slots.
    struct Part {
        double middle = 0;  // from the slot's start
        double count = 0;
        double sum = 0;
        double first = 0;
        double second = 0;
        double spread = 0;  // second moment of an even 1
    };
    using Slot = std::array<Part, kParts>;

    static Part partOf(std::span<const float> values, double start, double slotLength);
    void settle();

    std::deque<Slot> slots_;
    double hz_ = 0;
};

}  // namespace hm16::receiver
