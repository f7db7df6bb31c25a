// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace hmonitor {

/// The curve of the modulation bandwidth: a straight line over each 25 kHz, and the corners between
/// them rounded over 20 kHz by a blend of the two lines. The blend bows outward where the curve
/// falls.
class BandwidthCurve {
 public:
    static constexpr int kLastKhz = 150;
    /// Percent at 0, 25, 50 ... 175 kHz; the first is taken as 100 and the last as 0.
    using Peaks = std::array<float, 8>;
    /// Percent at each kHz; 0 is 100.
    using Points = std::array<float, kLastKhz + 1>;

    /// The curve through the peaks.
    static Points through(const Peaks& peaks);
};

}  // namespace hmonitor
