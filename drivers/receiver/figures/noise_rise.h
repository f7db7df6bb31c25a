// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace hm16::receiver {

// How much noise has lifted the highest deviation of a slot.
//
// That depends on how often the signal itself came near its highest: of the hundred crests of a
// tone one is lifted by three times the noise's rms, a single crest of a programme by next to
// nothing. What lies up to eight times the rms below the highest tells: the number of samples that
// a signal has less than d below its own highest is taken to grow with some power of d (0 for a
// flat top, 1/2 for crests of one height, more for crests of many heights), and power and highest
// are chosen so that this, blurred by the noise, is likeliest to give the counts that are there.
class NoiseRise {
 public:
    // How far below the highest samples count, in units of the noise's rms.
    static constexpr double kDepth = 8;

    // `highestHz`: the highest deviation; `noiseHz`: rms of the noise, over 0.
    NoiseRise(double highestHz, double noiseHz);

    // Samples of the slot's deviation without their signs. They must lie dense enough that no crest
    // falls between them; those far below the highest may be left out.
    void add(std::span<const float> magnitudes);

    // From 0 to 4.5 times the noise's rms.
    double hz() const;

 private:
    static constexpr std::size_t kBins = 32;

    double noiseHz_;
    float lowestHz_;  // of the first bin
    float binsPerHz_;
    std::size_t firstBin_;  // the first that lies above 0 Hz
    std::array<double, kBins> counts_{};
};

}  // namespace hm16::receiver
