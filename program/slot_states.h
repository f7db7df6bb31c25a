// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "drivers/hm16_more.h"
#include "program/measured_slot.h"
#include "program/said_states.h"

namespace hmonitor {

/// Reads a library that has slots (hm16.figures.1).
class SlotStates {
 public:
    /// The functions must outlive it.
    explicit SlotStates(const HM16_FiguresV1& library) : library_(library) {}

    /// Whether the unit has figures; without one there are none.
    bool hasFigures();
    /// Reads on to the newest slot of the tuned station and hands on each.
    void read(SlotTaker& taker);
    /// The states of the newest one that was read. Nothing before the first one.
    std::optional<SaidStates> newest() const;
    /// The unit is tuned anew: what slots said up to now is of another station.
    void passOver();
    /// The unit was opened anew: its figures and slots are others.
    void forget();

 private:
    void readOn(SlotTaker* taker);
    MeasuredSlot placed(const HM16_Slot& slot) const;

    const HM16_FiguresV1& library_;
    std::vector<std::size_t> places_;  ///< of the library's figures in the registry; kCount: none
    HM16_Slot slot_{};                 ///< the newest
    std::uint64_t next_ = 0;
    bool hasSlot_ = false;
};

}  // namespace hmonitor
