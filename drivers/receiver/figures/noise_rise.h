// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace hm16::receiver {

// How much noise has raised the highest deviation of a slot.
//
// This depends on how often the signal itself came near its highest value: of the hundred crests of
// a tone one is raised by three times the noise's rms, the single crest of a programme by next to
// nothing. The samples up to eight times the rms below the highest show it: the number of samples
// less than d below the signal's own highest is assumed to grow with a power of d (0 for a flat
// top, 1/2 for crests of one height, more for crests of many heights). Power and highest are chosen
// so that this distribution, blurred by the noise, most likely gives the observed counts.
class NoiseRise {
 public:
    // How far below the highest samples are counted, in units of the noise's rms.
    static constexpr double kDepth = 8;

    // `highestHz`: the highest deviation; `noiseHz`: rms of the noise, over 0.
    NoiseRise(double highestHz, double noiseHz);

    // Absolute values of the slot's deviation. They must be so dense that no crest falls between
    // them; those far below the highest may be left out.
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
