// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/multipath.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr double kLongestDelaySeconds = 50e-6;

// Weight of a new slot: the figure averages over half a second. Delays that are tried in turn
// average over their own last trials.
constexpr float kKeptOfBest = 0.9F;
constexpr float kKeptOfTried = 0.6F;

// Bins with fewer samples than this are mostly noise and are left out.
constexpr float kFewest = 16;

// A new delay replaces the old one only when its residual is smaller by this factor.
constexpr double kBetter = 0.9;

}  // namespace

Multipath::Multipath(double rateHz)
    : rateHz_(rateHz),
      delays_(static_cast<std::size_t>(
          std::max(1.0, std::round(kLongestDelaySeconds * rateHz / static_cast<double>(kStep))))),
      turned_(delays_.size() + 1, 0.0) {}

void Multipath::add(std::span<const float> frequency, std::span<const float> envelope,
                    double carrierHz, double reachHz) {
    frequency_.insert(frequency_.end(), frequency.begin(), frequency.end());
    envelope_.insert(envelope_.end(), envelope.begin(), envelope.end());
    const std::size_t steps = frequency_.size() / kStep;
    looks_.resize(steps);
    double turned = turned_.back();
    for (std::size_t n = 0; n < steps; ++n) {
        const float* f = frequency_.data() + n * kStep;
        looks_[n] = envelope_[n * kStep];
        turned += static_cast<double>(f[0] + f[1] + f[2]);
        turned_.push_back(turned);
    }
    const auto used = static_cast<std::ptrdiff_t>(steps * kStep);
    frequency_.erase(frequency_.begin(), frequency_.begin() + used);
    envelope_.erase(envelope_.begin(), envelope_.begin() + used);

    const auto carrier = static_cast<float>(carrierHz);
    const auto reach =
        static_cast<float>(std::min(reachHz, kBinHz * static_cast<double>(kBins) / 2 - 1));
    look(best_, bestSlot_, carrier, reach);
    if (tried_ != best_) look(tried_, triedSlot_, carrier, reach);

    turned_.erase(turned_.begin(), turned_.end() - static_cast<std::ptrdiff_t>(delays_.size() + 1));
    const double base = turned_.front();
    for (double& sum : turned_) sum -= base;
}

void Multipath::look(std::size_t delay, Bins& into, float carrier, float reach) const {
    const std::size_t steps = delay + 1;
    const double perStep = 1 / static_cast<double>(steps * kStep);
    constexpr float kPerHz = 1 / static_cast<float>(kBinHz);
    // Sum n is the one up to look n: the longest delay lies before the first.
    const double* now = turned_.data() + delays_.size();
    const double* before = now - steps;
    for (std::size_t n = 0; n < looks_.size(); ++n) {
        const float deviation = static_cast<float>((now[n] - before[n]) * perStep) - carrier;
        if (!(std::fabs(deviation) < reach)) continue;
        const auto bin =
            static_cast<std::size_t>(deviation * kPerHz + static_cast<float>(kBins) / 2);
        into.count[bin] += 1;
        into.sum[bin] += looks_[n];
        into.squares[bin] += looks_[n] * looks_[n];
    }
}

void Multipath::Bins::add(const Bins& slot, float level, float kept) {
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        count[bin] = kept * count[bin] + slot.count[bin];
        sum[bin] = kept * sum[bin] + slot.sum[bin] * level;
        squares[bin] = kept * squares[bin] + slot.squares[bin] * level * level;
    }
}

// What the slot's envelope would be if the channel were as before tells its level.
void Multipath::settle(std::size_t delay, const Bins& slot, float kept) {
    Delay& known = delays_[delay];
    float expected = 0;
    float found = 0;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (known.bins.count[bin] < kFewest) continue;
        expected += slot.count[bin] * known.bins.sum[bin] / known.bins.count[bin];
        found += slot.sum[bin];
    }
    known.bins.add(slot, expected > 0 && found > 0 ? expected / found : 1, kept);
    const Moments all = momentsOf(known.bins);
    const double variation = all.within + all.between;
    known.unexplained = variation > 0 ? all.within / variation : 1;
    known.tried = true;
}

void Multipath::endSlot() {
    settle(best_, bestSlot_, kKeptOfBest);
    if (tried_ != best_) settle(tried_, triedSlot_, kKeptOfTried);
    bestSlot_ = {};
    triedSlot_ = {};
    tried_ = (tried_ + 1) % delays_.size();
    for (std::size_t n = 0; n < delays_.size(); ++n)
        if (delays_[n].tried && delays_[n].unexplained < kBetter * delays_[best_].unexplained)
            best_ = n;
}

Multipath::Moments Multipath::momentsOf(const Bins& bins) {
    Moments result;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (bins.count[bin] < kFewest) continue;
        const double mean = static_cast<double>(bins.sum[bin]) / bins.count[bin];
        result.weight += bins.count[bin];
        result.mean += bins.sum[bin];
        result.within += std::max(0.0, bins.squares[bin] - mean * bins.sum[bin]);
    }
    if (result.weight == 0) return result;
    result.mean /= result.weight;
    result.within /= result.weight;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (bins.count[bin] < kFewest) continue;
        const double mean = static_cast<double>(bins.sum[bin]) / bins.count[bin];
        const double noise = result.within / bins.count[bin];
        result.between += bins.count[bin] * ((mean - result.mean) * (mean - result.mean) - noise);
    }
    result.between = std::max(0.0, result.between / result.weight);
    return result;
}

double Multipath::percent() const {
    const Moments all = momentsOf(delays_[best_].bins);
    return all.mean > 0 ? 100 * std::sqrt(all.between) / all.mean : 0;
}

double Multipath::delaySeconds() const {
    return static_cast<double>((best_ + 1) * kStep) / rateHz_;
}

}  // namespace hm16::receiver
