// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace hm16::receiver {

// The moments of the multiplex in one slot.
struct SlotMoments {
    double meanHz = 0;
    double meanSquare = 0;  // Hz squared, about 0 Hz
};

// `composite` in Hz; an empty one has moments of 0.
SlotMoments momentsOf(std::span<const float> composite);

}  // namespace hm16::receiver
