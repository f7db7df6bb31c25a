// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/figures/spectrum.h"
#include "drivers/receiver/figures/steady_tone.h"

namespace hm16::receiver {

// The last half second of both channels and the tone in it, examined every quarter of a second.
// Distortion and the response run use it.
class ToneWatch {
 public:
    explicit ToneWatch(double audioHz);

    // True if a new look was taken.
    bool add(std::span<const float> left, std::span<const float> right);

    // Begins a new stretch; the last look stays valid.
    void forgetStretch();

    // The strongest tone of the louder channel; its mean square is 0 before the first look.
    const SteadyTone& tone() const { return tone_; }

    // Harmonics of a tone that is 30 dB above everything else, in percent of it; 0 if there is no
    // such tone or none of its harmonics is in the audio band.
    double distortionPercent() const;

 private:
    std::size_t stretch_;
    std::size_t hop_;
    double audioHz_;
    Spectrum spectrum_;
    std::vector<float> left_;
    std::vector<float> right_;
    SteadyTone tone_;
};

}  // namespace hm16::receiver
