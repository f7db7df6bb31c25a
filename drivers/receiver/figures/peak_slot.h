// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace hm16::receiver {

// The extremes and moments of the multiplex in one slot.
struct SlotSummary {
    double highestHz = 0;
    double lowestHz = 0;
    double meanHz = 0;
    double meanSquare = 0;  // Hz squared, about 0 Hz

    // Highest deviation from the carrier to either side.
    double peakFrom(double carrierHz) const;
};

// `composite` in Hz. An extreme that falls between two samples is taken from the parabola through
// its neighbours: at 250 kHz a 15 kHz tone would otherwise read up to 1.8 percent low.
SlotSummary summarizeSlot(std::span<const float> composite);

}  // namespace hm16::receiver
