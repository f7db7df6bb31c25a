// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <deque>
#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"
#include "drivers/receiver/figures/pilot_track.h"

namespace hm16::receiver {

// From the multiplex to left and right, de-emphasized and 15 kHz wide, in Hz of deviation.
//
// Sum and difference come through the same filter, the difference's moved up to 38 kHz, so nothing
// has to be aligned. The difference waits until the pilot around it is known on both sides, and is
// turned by the phase of a line through it.
class StereoDecoder {
 public:
    // `deemphasisUs`: 50 or 75 microseconds, 0 for none.
    StereoDecoder(const Rates& rates, double deemphasisUs);

    void add(std::span<const float> composite);

    // Time (seconds) of the oldest sample that waits.
    double nextSeconds() const;

    // What becomes of a constant of the multiplex in left and right, as a factor.
    double constantGain() const { return constantGain_; }

    // Decodes what lies before `until` with a steady pilot's line; without one, as mono.
    void decode(double until, const PilotLine& line, std::vector<float>& left,
                std::vector<float>& right);

 private:
    StereoDecoder(const Rates& rates, const std::vector<double>& audioTaps);
    double secondsOf(std::size_t index) const;

    Rates rates_;
    double constantGain_;
    RealDecimator sumFilter_;
    BandDecimator differenceFilter_;
    RealDecimator leftFilter_;
    RealDecimator rightFilter_;
    std::vector<float> sum_;
    std::vector<std::complex<float>> difference_;
    std::size_t first_ = 0;  // number of the first waiting sample
    std::vector<float> left_;
    std::vector<float> right_;
};

}  // namespace hm16::receiver
