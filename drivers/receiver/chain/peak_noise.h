// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <span>
#include <vector>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// The noise on the multiplex. Noise on the carrier is phase noise, whose deviation grows with
// frequency; it raises the peak deviation of a slot.
//
// It is measured in two ways, and the lower result counts: in the envelope, where several rays or a
// neighbour look like noise, too, and in the multiplex around 68 kHz, where a hard limiter causes
// splatter.
class PeakNoise {
 public:
    // `channelNoiseHz`: noise bandwidth of the channel filter.
    PeakNoise(const Rates& rates, double channelNoiseHz, PeakEdge edge);

    void add(std::span<const float> composite);
    void endSlot();

    // The current slot gives no result.
    void forgetSlot();

    // Its rms in Hz; `roughness` is the variance of the envelope over its square.
    double rmsHz(double roughness) const;

 private:
    BandDecimator band_;
    double rmsPerEnvelope_;
    double rmsPerBand_;
    double bandPower_ = 0;
    double slotPower_ = 0;
    std::size_t slotCount_ = 0;
    std::vector<std::complex<float>> samples_;
};

// The bandwidth in Hz in which white noise has as much power as after this filter.
double noiseBandwidthHz(const std::vector<double>& taps, double rateHz);

// Mean square of the second difference, over samples `step` apart, of white noise after this
// filter, as a share of its variance.
double rougheningOf(const std::vector<double>& taps, std::size_t step);

}  // namespace hm16::receiver
