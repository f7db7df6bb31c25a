// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// The highest deviation in a slot of the multiplex, between its samples too: at 250 kHz the crests
// of the 38 kHz band lie up to 3 kHz over the highest sample, and a parabola through three samples
// still misses up to 3 kHz of them. So three points are put between each two samples.
class SlotPeak {
 public:
    SlotPeak();

    // Takes a slot's samples in Hz in place of the last one's.
    void take(std::span<const float> slot);

    // Highest deviation from the carrier to either side, freed from what noise with an rms of
    // `noiseHz` has added to it; 0 for no noise.
    double peakFrom(double carrierHz, double noiseHz);

 private:
    static constexpr std::size_t kPoints = 4;  // for each sample
    static constexpr std::size_t kTaps = 32;

    // The slot's samples, in front of which and behind which lies what the points need.
    const float* plain() const { return samples_.data() + kTaps / 2 - 1; }
    std::size_t intervals() const;
    // Adds the points of `count` intervals to the dense ones, part by part.
    std::span<float> addPoints(std::size_t from, std::size_t count);
    double magnitudeAt(std::size_t point, double carrierHz) const;
    double vertexAt(std::size_t point, double carrierHz) const;

    std::array<std::array<float, kTaps>, kPoints> taps_{};
    std::vector<float> samples_;    // some of the slot before, then the slot
    std::vector<float> stretches_;  // highest magnitude of each stretch of samples
    std::vector<float> dense_;      // magnitudes where they are high
};

}  // namespace hm16::receiver
