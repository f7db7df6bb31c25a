// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/demodulator.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {
namespace {

struct LowPass {
    double flatHz;
    double stopHz;
};

// The wide filter may alias from above 125 kHz into the range above 100 kHz, which nothing uses.
LowPass shapeOf(PeakEdge edge) {
    return edge == PeakEdge::At80 ? LowPass{60e3, 100e3} : LowPass{100e3, 149e3};
}

}  // namespace

std::vector<double> compositeTaps(double rateHz, Droop droop, PeakEdge edge) {
    const LowPass shape = shapeOf(edge);
    const double stop = std::min(shape.stopHz, rateHz / 2);
    const double flat = std::min(shape.flatHz, 0.8 * stop);
    const double middle = (flat + stop) / 2;
    const std::size_t taps = tapsFor(rateHz, stop - flat);
    std::vector<double> result = designFilter(rateHz, taps, [=](double hz) {
        if (hz > middle) return 0.0;
        const double turn = std::numbers::pi * hz / rateHz;
        return droop == Droop::None || turn == 0 ? 1.0 : turn / std::sin(turn);
    });
    // The gain at 0 Hz must be exact: an error of 1e-4 at an offset of 50 kHz reads as 5 Hz.
    const double sum = std::accumulate(result.begin(), result.end(), 0.0);
    for (double& tap : result) tap /= sum;
    return result;
}

Demodulator::Demodulator(const Rates& rates, PeakEdge edge)
    : channelHz_(rates.channel),
      lowPass_(compositeTaps(rates.channel, Droop::Discriminator, edge), rates.compositeStep),
      wideLowPass_(compositeTaps(rates.channel, Droop::Discriminator, PeakEdge::At100),
                   rates.compositeStep) {}

void Demodulator::discriminate(std::span<const Sample> channel, std::vector<float>& frequency,
                               std::vector<float>& envelope) {
    held_.insert(held_.end(), channel.begin(), channel.end());
    if (held_.size() < 2) return;
    const std::size_t steps = held_.size() - 1;
    const std::size_t before = frequency.size();
    frequency.resize(before + steps);
    angleSteps(reinterpret_cast<const float*>(held_.data()), steps, frequency.data() + before);
    const auto hzPerRadian = static_cast<float>(channelHz_ / (2 * std::numbers::pi));
    for (std::size_t n = before; n < frequency.size(); ++n) frequency[n] *= hzPerRadian;
    envelope.resize(before + steps);
    lengths(reinterpret_cast<const float*>(held_.data()), steps, envelope.data() + before);
    held_.erase(held_.begin(), held_.end() - 1);
}

void Demodulator::lowPass(std::span<const float> frequency, std::vector<float>& composite) {
    lowPass_.process(frequency, composite);
}

void Demodulator::wideLowPass(std::span<const float> frequency, std::vector<float>& wide) {
    wideLowPass_.process(frequency, wide);
}

}  // namespace hm16::receiver
