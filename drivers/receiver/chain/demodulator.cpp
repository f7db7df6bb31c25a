// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/demodulator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/filter_design.h"
#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {
namespace {

// Flat over the RDS band, half way down at 80 kHz: SM.1268 wants 76 to 100 kHz there, and the
// lower end lets in least noise.
constexpr double kCompositeFlatHz = 60e3;
constexpr double kCompositeStopHz = 100e3;

}  // namespace

std::vector<double> compositeTaps(double rateHz, Droop droop) {
    const double stop = std::min(kCompositeStopHz, rateHz / 2);
    const double edge = (kCompositeFlatHz + stop) / 2;
    const std::size_t taps = tapsFor(rateHz, stop - kCompositeFlatHz);
    std::vector<double> result = designFilter(rateHz, taps, [=](double hz) {
        if (hz > edge) return 0.0;
        const double turn = std::numbers::pi * hz / rateHz;
        return droop == Droop::None || turn == 0 ? 1.0 : turn / std::sin(turn);
    });
    // A carrier far beside its frequency must come out to the Hz.
    const double atZero = gainOf(result, rateHz, 0);
    for (double& tap : result) tap /= atZero;
    return result;
}

Demodulator::Demodulator(const Rates& rates)
    : channelHz_(rates.channel),
      lowPass_(compositeTaps(rates.channel, Droop::Discriminator), rates.compositeStep) {}

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

}  // namespace hm16::receiver
