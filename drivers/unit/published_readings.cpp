// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/published_readings.h"

#include <bit>

namespace hm16 {

namespace {

using Fields = std::array<float, sizeof(Readings) / sizeof(float)>;
static_assert(sizeof(Fields) == sizeof(Readings), "readings are floats and nothing else");

}  // namespace

void PublishedReadings::publish(Readings readings) {
    if (figures::showsEndMark(readings)) readings.pilotError -= 1;
    show(readings);
}

void PublishedReadings::publishEndMark(Readings readings) {
    readings.pilotError = kEndMarkError;
    readings.pilotLevel = kEndMarkLevel;
    show(readings);
}

// Each value is stored with release order behind the odd sequence number, so that whoever sees a
// new value also sees that the slot is being written.
void PublishedReadings::show(const Readings& readings) {
    const auto fields = std::bit_cast<Fields>(readings);
    const std::uint32_t next = shown_.load(std::memory_order_relaxed) ^ 1u;
    Slot& slot = slots_[next];
    const std::uint32_t sequence = slot.sequence.load(std::memory_order_relaxed);
    slot.sequence.store(sequence + 1, std::memory_order_relaxed);
    for (std::size_t i = 0; i < kFields; ++i) {
        slot.values[i].store(fields[i], std::memory_order_release);
    }
    slot.sequence.store(sequence + 2, std::memory_order_release);
    shown_.store(next, std::memory_order_release);
}

bool PublishedReadings::copy(const Slot& slot, Readings& readings) {
    Fields fields;
    const std::uint32_t before = slot.sequence.load(std::memory_order_acquire);
    for (std::size_t i = 0; i < kFields; ++i) {
        fields[i] = slot.values[i].load(std::memory_order_acquire);
    }
    if (before % 2 != 0 || slot.sequence.load(std::memory_order_relaxed) != before) return false;
    readings = std::bit_cast<Readings>(fields);
    return true;
}

Readings PublishedReadings::latest() const {
    Readings readings;
    while (!copy(slots_[shown_.load(std::memory_order_acquire)], readings)) {
    }
    return readings;
}

}  // namespace hm16
