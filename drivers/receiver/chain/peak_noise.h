// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <span>
#include <vector>

#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/dsp/decimator.h"

namespace hm16::receiver {

// How much noise lifts the highest deviation of a slot. Noise on the carrier is phase noise, whose
// deviation grows with frequency; what the multiplex filter lets through of it adds about three
// times its rms to a peak that comes often within the slot, as that of a tone does. A programme's
// single highest peak gains less and then reads up to twice the noise's rms low: 0.2 kHz at 50 dB
// of carrier to noise, 1.8 kHz at 30 dB.
//
// The noise is measured twice, and the lower result counts: in the envelope, where several rays or
// a neighbour look like noise too, and in the multiplex around 68 kHz, where a hard limiter leaves
// its splinters.
class PeakNoise {
 public:
    // `channelNoiseHz`: noise bandwidth of the channel filter.
    PeakNoise(const Rates& rates, double channelNoiseHz);

    void add(std::span<const float> composite);
    void endSlot();

    // Rise in Hz; `roughness` is the variance of the envelope over its square.
    double riseHz(double roughness) const;

 private:
    BandDecimator band_;
    double risePerEnvelope_;
    double risePerBand_;
    double bandPower_ = 0;
    double slotPower_ = 0;
    std::size_t slotCount_ = 0;
    std::vector<std::complex<float>> samples_;
};

// Width in Hz of the band in which white noise has as much power as behind this filter.
double noiseBandwidthHz(const std::vector<double>& taps, double rateHz);

}  // namespace hm16::receiver
