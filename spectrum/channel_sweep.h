// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/int16.h"

namespace hmonitor {

/// The points of one channel spectrum, from the low edge of the span to the high one.
struct ChannelSweep {
    double carrier = 875;  ///< tuned frequency in 100 kHz units
    double halfSpan = 0;   ///< kHz to each side
    double step = 1;       ///< kHz, at least 1

    Int16 points() const;
    /// One step below the first point, MHz.
    double beforeFirstMhz() const;
    /// The frequency of point i (from 1) in units of 100 kHz, as the driver takes it.
    float frequency(int i) const;
    /// True for the point that falls on the carrier; a step that does not divide the half span
    /// has none.
    bool isCentre(int i) const;

 private:
    double steps() const;
    double beforeFirst() const;
};

/// The level relative to the carrier in whole dB; a higher one counts as 0.
Int16 dbAgainstCarrier(float level, float carrier);

}  // namespace hmonitor
