// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace hm16::receiver {

// Several rays that arrive one after the other make a channel's gain depend on the frequency, so
// the envelope of an FM signal follows its deviation: the same deviation, the same envelope. Noise
// makes the envelope vary too, but never twice alike. So the mean envelope is taken for each 2 kHz
// of deviation, and its variation over them, in percent rms, is the figure.
class Multipath {
 public:
    // Equally many values of frequency in Hz and envelope. `reachHz`: up to where the channel
    // filter is flat enough for a fair envelope.
    void add(std::span<const float> frequency, std::span<const float> envelope, double carrierHz,
             double reachHz);

    // Lets the past fade; called once a slot.
    void fade();

    double percent() const;

    // Variation of the envelope at equal deviation, as a share of the mean envelope squared: noise
    // and neighbours. 0 is a clean carrier, 0.27 noise without any.
    double roughness() const;

 private:
    static constexpr std::size_t kBins = 160;
    static constexpr double kBinHz = 2000;

    struct Moments {
        double weight = 0;
        double mean = 0;
        double within = 0;
    };
    Moments moments() const;

    std::array<float, kBins> count_{};
    std::array<float, kBins> sum_{};
    std::array<float, kBins> squares_{};
};

}  // namespace hm16::receiver
