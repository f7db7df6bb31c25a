// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cmath>

#include "core/numbers.h"

namespace hmonitor {

/// The mean carrier deviation over the last 100 samples, 10 s.
struct CarrierDeviation {
    std::array<float, 100> DeviationSamples{};  ///< a ring buffer, in units of 100 Hz
    std::size_t oldest = 0;

    /// Replaces the oldest sample; returns the mean in hertz, which is the sum of a hundred samples
    /// in units of 100 Hz.
    float take(float sample) {
        DeviationSamples[oldest] = sample;
        oldest = (oldest + 1) % DeviationSamples.size();
        float sum = 0;
        for (std::size_t i = 0; i < DeviationSamples.size(); ++i) {
            sum += DeviationSamples[(oldest + i) % DeviationSamples.size()];
        }
        return sum;
    }

    static bool outOfLimit(float hertz) { return hertz >= 10000 || hertz <= -10000; }
};

/// The over-range lamp: lit while the last four samples are all at the end of the unit's range.
struct CarrierOver {
    std::array<float, 4> Carrier4{};

    /// Takes a sample in units of 100 Hz; returns true when the lamp is to be lit. The unit
    /// saturates at 100; a mean beyond that turns the lamp off.
    bool take(float sample) {
        for (std::size_t i = 0; i + 1 < Carrier4.size(); ++i) Carrier4[i] = Carrier4[i + 1];
        Carrier4.back() = sample;
        const float mean = (Carrier4[0] + Carrier4[1] + Carrier4[2] + Carrier4[3]) / 4;
        return std::abs(floorWhole(mean)) == 100;
    }
};

}  // namespace hmonitor
