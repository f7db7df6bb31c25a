// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/figures/audio_power.h"
#include "drivers/receiver/figures/distortion.h"
#include "drivers/receiver/figures/noise_floor.h"
#include "drivers/receiver/figures/programme_level.h"
#include "drivers/receiver/figures/separation.h"
#include "drivers/receiver/figures/stereo_axis.h"

namespace hm16::receiver {

// The figures that are measured on left and right.
class AudioFigures {
 public:
    explicit AudioFigures(double audioHz);

    // Samples in Hz of deviation; both equally many. `stereo` tells whether they were decoded from
    // a stereo multiplex, since separation has no meaning otherwise. `spoilt` samples are skipped,
    // and the figures stay.
    void add(std::span<const float> left, std::span<const float> right, bool stereo,
             bool spoilt = false);

    double leftDb() const { return levelDb(left_.meanSquare()); }
    double rightDb() const { return levelDb(right_.meanSquare()); }
    double sumDb() const { return levelDb(sum_.meanSquare()); }
    double differenceDb() const { return levelDb(difference_.meanSquare()); }
    const StereoAxis& axis() const { return axis_; }
    const NoiseFloor& noiseLeft() const { return noiseLeft_; }
    const NoiseFloor& noiseRight() const { return noiseRight_; }
    const Separation& separation() const { return separation_; }
    const ToneWatch& tones() const { return tones_; }

    // The number of looks at the tones so far; a response run takes one step for each.
    std::size_t looks() const { return looks_; }

 private:
    void takeBlock(bool stereo);

    std::size_t step_;   // samples of a programme level's step
    std::size_t block_;  // of 50 ms
    std::vector<float> heldLeft_;
    std::vector<float> heldRight_;
    ProgrammeLevel left_;
    ProgrammeLevel right_;
    ProgrammeLevel sum_;
    ProgrammeLevel difference_;
    StereoAxis axis_;
    NoiseFloor noiseLeft_;
    NoiseFloor noiseRight_;
    Separation separation_;
    ToneWatch tones_;
    std::size_t looks_ = 0;
};

}  // namespace hm16::receiver
