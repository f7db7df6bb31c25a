// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/bandwidth_curve.h"

#include <cmath>
#include <cstddef>

namespace hmonitor {

namespace {

constexpr int kSegmentKhz = 25;
constexpr int kSegments = 7;
/// A corner is rounded from 10 kHz before it to 10 kHz behind it.
constexpr int kReachKhz = 10;

struct StraightLine {
    float slope = 0;
    float offset = 0;  ///< at 0 kHz
};

std::array<StraightLine, kSegments> segmentsOf(const BandwidthCurve::Peaks& peaks) {
    std::array<StraightLine, kSegments> lines;
    for (std::size_t k = 0; k < lines.size(); ++k) {
        const auto start = static_cast<float>(kSegmentKhz * k);
        lines[k].slope = (peaks[k + 1] - peaks[k]) / kSegmentKhz;
        lines[k].offset = peaks[k] - start * lines[k].slope;
    }
    return lines;
}

float blend(const StraightLine& first, const StraightLine& second, float share, int kHz) {
    constexpr float kFlat = 0.1f;
    constexpr float kBow = 15;
    const bool flat = std::fabs(first.slope) < kFlat && std::fabs(second.slope) < kFlat;
    const float outward = flat ? 0.f : first.slope < 0 ? 1.f : -1.f;
    const float rest = 1 - share;
    return rest * outward * kBow * share + share * second.offset + rest * first.offset +
           (second.slope * share + rest * first.slope) * static_cast<float>(kHz);
}

}  // namespace

BandwidthCurve::Points BandwidthCurve::through(const Peaks& peaks) {
    constexpr float kSharePerKhz = 0.05f;
    Peaks ends = peaks;
    ends.front() = 100;
    ends.back() = 0;
    const auto lines = segmentsOf(ends);

    Points points;
    points[0] = 100;
    // The weight of the second line: 0 before the first corner.
    float share = 0;
    for (int kHz = 1; kHz <= kLastKhz; ++kHz) {
        // Corner 1 is at 25 kHz; its rounding goes from 15 to 35 kHz.
        const int fromFirst = kHz - (kSegmentKhz - kReachKhz) - 1;
        const int corner = fromFirst < 0 ? 0 : fromFirst / kSegmentKhz;
        if (fromFirst >= 0) {
            const int into = fromFirst % kSegmentKhz + 1;
            share = into < 2 * kReachKhz ? static_cast<float>(into) * kSharePerKhz : 1.f;
        }
        const auto first = static_cast<std::size_t>(corner);
        points[static_cast<std::size_t>(kHz)] = blend(lines[first], lines[first + 1], share, kHz);
    }
    return points;
}

}  // namespace hmonitor
