// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/stereo_decoder.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/filter_design.h"

namespace hm16::receiver {
namespace {

constexpr double kAudioHz = 15e3;
constexpr double kAudioStopHz = 18.5e3;  // the pilot lies behind it

// Flat over the audio, and down where the other bands of the multiplex would fold onto it.
std::vector<double> audioBandTaps(const Rates& rates) {
    return designLowPass(rates.composite, kAudioHz + 200, rates.audio - kAudioHz - 1000);
}

// The audio's own low-pass with the size of the de-emphasis in it. Its phase is left out: every
// figure is a power. A filter this short blunts the de-emphasis' bend by a tenth of a dB, so it is
// designed once more against a gain that is off the other way.
std::vector<double> audioTaps(const Rates& rates, double deemphasisUs) {
    constexpr double kEdge = (kAudioHz + kAudioStopHz) / 2;
    constexpr double kGridHz = 250;
    const std::size_t taps = tapsFor(rates.audio, kAudioStopHz - kAudioHz);
    const auto wanted = [=](double hz) {
        return 1 / std::hypot(1.0, 2 * std::numbers::pi * hz * deemphasisUs * 1e-6);
    };
    std::vector<double> correction(static_cast<std::size_t>(kAudioHz / kGridHz) + 1, 1.0);
    std::vector<double> result;
    for (int round = 0; round < 3; ++round) {
        result = designFilter(rates.audio, taps, [&](double hz) {
            if (hz > kEdge) return 0.0;
            const double place =
                std::min(hz / kGridHz, static_cast<double>(correction.size()) - 1.001);
            const auto below = static_cast<std::size_t>(place);
            const double part = place - static_cast<double>(below);
            return wanted(hz) * (correction[below] * (1 - part) + correction[below + 1] * part);
        });
        for (std::size_t n = 0; n < correction.size(); ++n) {
            const double hz = static_cast<double>(n) * kGridHz;
            correction[n] *= wanted(hz) / gainOf(result, rates.audio, hz);
        }
    }
    return result;
}

}  // namespace

StereoDecoder::StereoDecoder(const Rates& rates, double deemphasisUs)
    : StereoDecoder(rates, audioTaps(rates, deemphasisUs)) {}

StereoDecoder::StereoDecoder(const Rates& rates, const std::vector<double>& audioTaps)
    : rates_(rates),
      constantGain_(gainOf(audioTaps, rates.audio, 0)),
      sumFilter_(audioBandTaps(rates), rates.audioStep),
      differenceFilter_(audioBandTaps(rates), rates.audioStep, kDifferenceHz / rates.composite),
      leftFilter_(audioTaps, 1),
      rightFilter_(leftFilter_) {}

void StereoDecoder::add(std::span<const float> composite) {
    sumFilter_.process(composite, sum_);
    differenceFilter_.process(composite, difference_);
}

double StereoDecoder::secondsOf(std::size_t index) const {
    return (static_cast<double>(index) * static_cast<double>(rates_.audioStep) +
            sumFilter_.delay()) /
           rates_.composite;
}

double StereoDecoder::nextSeconds() const {
    return secondsOf(first_);
}

void StereoDecoder::decode(double until, const PilotLine& line, std::vector<float>& left,
                           std::vector<float>& right) {
    const std::size_t waiting = std::min(sum_.size(), difference_.size());
    std::size_t count = 0;
    while (count < waiting && secondsOf(first_ + count) < until) ++count;
    left_.resize(count);
    right_.resize(count);
    if (line.steady()) {
        // A pilot sine of phase p shows as p - 90 degrees against a cosine, the difference's sine
        // of phase 2p as 2p - 90 degrees: so it stands at twice the pilot's angle plus 90 degrees.
        const double start = secondsOf(first_);
        const std::complex<double> step = std::polar(1.0, -2 * line.slope / rates_.audio);
        std::complex<double> turn =
            std::polar(2.0, -2 * line.phaseAt(start) - std::numbers::pi / 2);
        for (std::size_t n = 0; n < count; ++n) {
            const auto difference = static_cast<float>(difference_[n].real() * turn.real() -
                                                       difference_[n].imag() * turn.imag());
            left_[n] = sum_[n] + difference;
            right_[n] = sum_[n] - difference;
            turn *= step;
        }
    } else {
        std::copy_n(sum_.begin(), count, left_.begin());
        std::copy_n(sum_.begin(), count, right_.begin());
    }
    leftFilter_.process(left_, left);
    rightFilter_.process(right_, right);
    sum_.erase(sum_.begin(), sum_.begin() + static_cast<std::ptrdiff_t>(count));
    difference_.erase(difference_.begin(),
                      difference_.begin() + static_cast<std::ptrdiff_t>(count));
    first_ += count;
}

}  // namespace hm16::receiver
