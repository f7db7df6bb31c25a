// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/peak_noise.h"

#include <algorithm>
#include <cmath>

#include "drivers/receiver/chain/demodulator.h"
#include "drivers/receiver/dsp/filter_design.h"

namespace hm16::receiver {
namespace {

constexpr double kBandHz = 68e3;
constexpr double kBandFlatHz = 4e3;
constexpr double kBandStopHz = 8.4e3;  // the RDS band ends there
constexpr double kBandStopbandDb = 60;
constexpr double kRememberedOfASlot = 0.3;  // of each slot: noise may come up fast

std::vector<double> noiseBandTaps(const Rates& rates) {
    return designLowPass(rates.composite, kBandFlatHz, kBandStopHz, kBandStopbandDb);
}

// Power of noise with a density of f^2 (FM noise) after the multiplex filter.
double noisePower(const Rates& rates, PeakEdge edge) {
    constexpr double kStepHz = 500;
    const std::vector<double> taps = compositeTaps(rates.channel, Droop::None, edge);
    double power = 0;
    for (double hz = kStepHz / 2; hz < rates.channel / 2; hz += kStepHz) {
        const double gain = hz * gainOf(taps, rates.channel, hz);
        power += gain * gain * kStepHz;
    }
    return power;
}

// The same after the band filter around 68 kHz, which halves amplitudes.
double noisePowerInBand(const Rates& rates, PeakEdge edge) {
    constexpr double kStepHz = 100;
    const std::vector<double> multiplex = compositeTaps(rates.channel, Droop::None, edge);
    const std::vector<double> band = noiseBandTaps(rates);
    double power = 0;
    for (double away = -kBandStopHz; away < kBandStopHz; away += kStepHz) {
        const double hz = kBandHz + away;
        const double gain =
            hz * gainOf(multiplex, rates.channel, hz) * gainOf(band, rates.composite, away);
        power += gain * gain * kStepHz / 2;
    }
    return power;
}

}  // namespace

PeakNoise::PeakNoise(const Rates& rates, double channelNoiseHz, PeakEdge edge)
    : band_(noiseBandTaps(rates), rates.narrowStep, kBandHz / rates.composite) {
    const double power = noisePower(rates, edge);
    // Noise over carrier is twice the envelope's relative variance; its density is that over the
    // channel's noise bandwidth.
    rmsPerEnvelope_ = std::sqrt(2 / channelNoiseHz * power);
    rmsPerBand_ = std::sqrt(power / noisePowerInBand(rates, edge));
}

void PeakNoise::add(std::span<const float> composite) {
    samples_.clear();
    band_.process(composite, samples_);
    for (const std::complex<float> sample : samples_) slotPower_ += std::norm(sample);
    slotCount_ += samples_.size();
}

void PeakNoise::endSlot() {
    if (slotCount_ == 0) return;
    const double now = slotPower_ / static_cast<double>(slotCount_);
    bandPower_ =
        bandPower_ == 0 ? now : kRememberedOfASlot * bandPower_ + (1 - kRememberedOfASlot) * now;
    slotPower_ = 0;
    slotCount_ = 0;
}

void PeakNoise::forgetSlot() {
    slotPower_ = 0;
    slotCount_ = 0;
}

double PeakNoise::rmsHz(double roughness) const {
    const double byEnvelope = rmsPerEnvelope_ * std::sqrt(std::max(0.0, roughness));
    const double byBand = rmsPerBand_ * std::sqrt(bandPower_);
    return std::min(byEnvelope, byBand);
}

double noiseBandwidthHz(const std::vector<double>& taps, double rateHz) {
    double squares = 0;
    double sum = 0;
    for (const double tap : taps) {
        squares += tap * tap;
        sum += tap;
    }
    return rateHz * squares / (sum * sum);
}

double rougheningOf(const std::vector<double>& taps, std::size_t step) {
    const auto together = [&](std::size_t apart) {
        double sum = 0;
        for (std::size_t n = 0; n + apart < taps.size(); ++n) sum += taps[n] * taps[n + apart];
        return sum;
    };
    const double here = together(0);
    return here > 0 ? 6 - (8 * together(step) - 2 * together(2 * step)) / here : 1;
}

}  // namespace hm16::receiver
