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
// Sum and difference pass the same filter (that of the difference is moved up to 38 kHz), so they
// need no alignment. The difference is delayed until the pilot is known before and after it, and is
// turned by the phase of a line through the pilot.
class StereoDecoder {
 public:
    // `deemphasisUs`: 50 or 75 microseconds, 0 for none.
    StereoDecoder(const Rates& rates, double deemphasisUs);

    void add(std::span<const float> composite);

    // The time of the oldest waiting sample, in seconds.
    double nextSeconds() const;

    // The factor by which a constant of the multiplex appears in left and right.
    double constantGain() const { return constantGain_; }

    // Decodes everything before `until`, with the line of a steady pilot; without one, as mono.
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
