// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "base/figures.h"

namespace hmonitor {

/// A slot of a library that has slots (drivers/hm16_more.h): what the unit measured in one stretch
/// of time, each figure of the registry in its order and unit.
struct MeasuredSlot {
    std::uint64_t number = 0;    ///< counts; a jump is a loss
    std::int64_t utcNs = 0;      ///< wall clock of its end, since 1970; 0: not known
    std::int64_t signalNs = 0;   ///< the signal's own time at its end, since its start
    std::uint32_t lengthMs = 0;  ///< 50
    /// Counts where the figure's state is Known. What the library does not have is not measured.
    std::array<float, figures::kCount> values{};
    std::array<figures::State, figures::kCount> states{};
};

/// Takes slots one by one, oldest first.
class SlotTaker {
 public:
    virtual ~SlotTaker() = default;
    virtual void take(const MeasuredSlot& slot) = 0;
};

}  // namespace hmonitor
