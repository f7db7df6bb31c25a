// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/multipath.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

// With this per slot the figure looks back over half a second.
constexpr float kFade = 0.9F;

// Every so many-th sample is enough: neighbours tell nearly the same.
constexpr std::size_t kBinStep = 3;

// A bin visited less says more about noise than about the channel.
constexpr float kFewest = 16;

}  // namespace

void Multipath::add(std::span<const float> frequency, std::span<const float> envelope,
                    double carrierHz, double reachHz) {
    const auto carrier = static_cast<float>(carrierHz);
    const auto reach =
        static_cast<float>(std::min(reachHz, kBinHz * static_cast<double>(kBins) / 2 - 1));
    constexpr float kPerHz = 1 / static_cast<float>(kBinHz);
    for (std::size_t n = 0; n < frequency.size(); n += kBinStep) {
        const float deviation = frequency[n] - carrier;
        if (!(std::fabs(deviation) < reach)) continue;
        const auto bin =
            static_cast<std::size_t>(deviation * kPerHz + static_cast<float>(kBins) / 2);
        count_[bin] += 1;
        sum_[bin] += envelope[n];
        squares_[bin] += envelope[n] * envelope[n];
    }
}

void Multipath::fade() {
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        count_[bin] *= kFade;
        sum_[bin] *= kFade;
        squares_[bin] *= kFade;
    }
}

Multipath::Moments Multipath::moments() const {
    Moments result;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (count_[bin] < kFewest) continue;
        const double mean = static_cast<double>(sum_[bin]) / count_[bin];
        result.weight += count_[bin];
        result.mean += sum_[bin];
        result.within += std::max(0.0, squares_[bin] - mean * sum_[bin]);
    }
    if (result.weight > 0) {
        result.mean /= result.weight;
        result.within /= result.weight;
    }
    return result;
}

double Multipath::percent() const {
    const Moments all = moments();
    if (all.mean <= 0) return 0;
    double between = 0;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (count_[bin] < kFewest) continue;
        const double mean = static_cast<double>(sum_[bin]) / count_[bin];
        const double noise = all.within / count_[bin];
        between += count_[bin] * ((mean - all.mean) * (mean - all.mean) - noise);
    }
    if (between <= 0) return 0;
    return 100 * std::sqrt(between / all.weight) / all.mean;
}

double Multipath::roughness() const {
    const Moments all = moments();
    return all.mean > 0 ? all.within / (all.mean * all.mean) : 1;
}

}  // namespace hm16::receiver
