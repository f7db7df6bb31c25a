// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// The highest deviation in a slot of the multiplex, also between its samples: at 250 kHz the crests
// of the 38 kHz band are up to 3 kHz higher than the highest sample, and a parabola through three
// samples still misses up to 3 kHz. So three points are interpolated between each two samples.
class SlotPeak {
 public:
    SlotPeak();

    // Replaces the last slot's samples, in Hz.
    void take(std::span<const float> slot);

    // Highest deviation from the carrier to either side, without what noise with an rms of
    // `noiseHz` has added to it; 0 for no noise.
    double peakFrom(double carrierHz, double noiseHz);

 private:
    static constexpr std::size_t kPoints = 4;  // for each sample
    static constexpr std::size_t kTaps = 32;

    // The slot's samples, with those before and after it that the interpolation needs.
    const float* plain() const { return samples_.data() + kTaps / 2 - 1; }
    std::size_t intervals() const;
    // Interpolates `count` intervals, part by part.
    std::span<float> addPoints(std::size_t from, std::size_t count);
    double magnitudeAt(std::size_t point, double carrierHz) const;
    double vertexAt(std::size_t point, double carrierHz) const;

    std::array<std::array<float, kTaps>, kPoints> taps_{};
    std::vector<float> samples_;    // the end of the slot before, then the slot
    std::vector<float> stretches_;  // highest magnitude of each stretch of samples
    std::vector<float> dense_;      // magnitudes where they are high
};

}  // namespace hm16::receiver
