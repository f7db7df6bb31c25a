// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/carrier_watch.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace hm16::receiver {
namespace {

constexpr std::size_t kKept = 500;       // blocks: half a second or more
constexpr std::size_t kFewestKept = 20;  // before anything can stand out of them
constexpr float kStandsOut = 2.5F;       // times the middle spike

// With more bursts than this among the kept blocks they are taken for a property of the signal.
constexpr std::size_t kMostBursts = 100;
// After this many bursts in the kept blocks the thresholds are raised by the factor, since smaller
// spikes may belong to the signal.
constexpr std::size_t kDoubtfulBursts = 3;
constexpr float kFurtherOut = 4;

// A burst is also an envelope below this share of the median block's minimum, or above its mean by
// this multiple of the median block's excess plus a fixed share.
constexpr float kDeep = 0.5F;
constexpr float kHigh = 2;
constexpr float kHighAnyway = 0.15F;

// Largest deviation that a broadcast multiplex has near its upper end, and that frequency.
constexpr double kStrongestHz = 110e3;
constexpr double kUpperEndHz = 53e3;

// Relative variance of the envelope within a block above which there is no carrier,
constexpr double kNoCarrier = 0.15;
// provided that the median of all blocks is below this.
constexpr double kGoodAir = 0.03;
// A level below this share of the median counts as no signal.
constexpr float kNoLevel = 0.05F;

// A longer loss of the carrier is reported as such and not bridged as a gap.
constexpr std::size_t kLongestGapBlocks = 160;

// Samples around a burst that the preceding filters have spread it over.
constexpr std::size_t kSpread = 8;

float fourthDifference(const float* f) {
    return f[-2] - 4 * f[-1] + 6 * f[0] - 4 * f[1] + f[2];
}

double fourthGain(double hz, double rateHz) {
    return std::pow(2 * std::sin(std::numbers::pi * hz / rateHz), 4);
}

}  // namespace

CarrierWatch::CarrierWatch(double rateHz, double roughening)
    : roughening_(roughening),
      leastSpikeHz_(static_cast<float>(kStrongestHz * fourthGain(kUpperEndHz, rateHz))) {}

CarrierWatch::Block CarrierWatch::measured(const float* frequency, const float* envelope) const {
    constexpr std::size_t kLanes = 16;
    static_assert(kBlock % kLanes == 0);
    float sum[kLanes] = {};
    float rough[kLanes] = {};
    float spike[kLanes] = {};
    float lowest[kLanes];
    float highest[kLanes] = {};
    for (float& value : lowest) value = envelope[0];
    for (std::size_t from = 0; from < kBlock; from += kLanes) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const float* e = envelope + from + lane;
            // The difference of samples two apart passes most in the middle of the channel.
            const float bend = e[-2] - 2 * e[0] + e[2];
            sum[lane] += e[0];
            rough[lane] += bend * bend;
            const float jump = std::fabs(fourthDifference(frequency + from + lane));
            spike[lane] = jump > spike[lane] ? jump : spike[lane];
            lowest[lane] = e[0] < lowest[lane] ? e[0] : lowest[lane];
            highest[lane] = e[0] > highest[lane] ? e[0] : highest[lane];
        }
    }
    Block block;
    block.lowest = envelope[0];
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        block.mean += sum[lane] / kBlock;
        block.rough += rough[lane] / kBlock;
        block.spike = std::max(block.spike, spike[lane]);
        block.lowest = std::min(block.lowest, lowest[lane]);
        block.highest = std::max(block.highest, highest[lane]);
    }
    block.rough /= roughening_;
    return block;
}

CarrierWatch::Finding CarrierWatch::judged(const Block& block) {
    const double square = block.mean * block.mean;
    const bool quiet = static_cast<float>(block.mean) <= kNoLevel * middleMean_;
    const bool noise = block.rough > kNoCarrier * square;
    if (quiet || (noise && middleRoughness_ < kGoodAir)) {
        ++without_;
        return without_ <= kLongestGapBlocks ? Finding::Gap : Finding::Carrier;
    }
    without_ = 0;
    const std::size_t most = means_.size() < kKept ? kDoubtfulBursts : kMostBursts;
    if (middleMean_ <= 0 || burstsKept_ > most) return Finding::Carrier;
    // No burst can be told from noise.
    if (bursts_ == Bursts::NotSought || echoes_ || middleRoughness_ >= kGoodAir)
        return Finding::Carrier;
    limits_ = limitsFor(block);
    const bool outstanding = block.spike > limits_.spike || block.lowest < limits_.lowest ||
                             block.highest > limits_.highest;
    return outstanding ? Finding::Burst : Finding::Carrier;
}

CarrierWatch::Limits CarrierWatch::limitsFor(const Block& block) {
    const auto mean = static_cast<float>(block.mean);
    const float spike = std::max(middleSpike_, middleOf(spikes_, kFewestKept));
    const float lowest = std::min(middleLowest_, middleOf(lowest_, kFewestKept));
    const float highest = std::max(middleHighest_, middleOf(highest_, kFewestKept));
    const float out = burstsKept_ > kDoubtfulBursts ? kFurtherOut : 1;
    return {out * std::max(leastSpikeHz_, kStandsOut * spike), mean * kDeep * lowest / out,
            mean * (1 + out * (kHigh * (highest - 1) + kHighAnyway))};
}

CarrierWatch::Look CarrierWatch::look(const float* frequency, const float* envelope) {
    const Block block = measured(frequency, envelope);
    Look look;
    look.finding = judged(block);
    if (look.finding == Finding::Gap) return look;
    // Bursts enter the medians too, so that frequent ones raise the thresholds.
    const bool burst = look.finding == Finding::Burst;
    const auto mean = static_cast<float>(block.mean);
    const float lowest = mean > 0 ? block.lowest / mean : 1;
    const float highest = mean > 0 ? block.highest / mean : 1;
    if (spikes_.size() < kKept) {
        spikes_.push_back(block.spike);
        means_.push_back(static_cast<float>(block.mean));
        lowest_.push_back(lowest);
        highest_.push_back(highest);
        burst_.push_back(burst);
        if (spikes_.size() == kFewestKept) settleMiddle();
    } else {
        if (burst_[next_]) --burstsKept_;
        spikes_[next_] = block.spike;
        means_[next_] = static_cast<float>(block.mean);
        lowest_[next_] = lowest;
        highest_[next_] = highest;
        burst_[next_] = burst;
        next_ = (next_ + 1) % kKept;
    }
    if (!burst) {
        roughSum_ += block.rough;
        meanSum_ += block.mean * block.mean;
        ++blocks_;
        return look;
    }
    ++burstsKept_;
    std::size_t first = kBlock;
    std::size_t last = 0;
    for (std::size_t n = 0; n < kBlock; ++n) {
        const bool plain = std::fabs(fourthDifference(frequency + n)) < limits_.spike / 2 &&
                           envelope[n] > limits_.lowest && envelope[n] < limits_.highest;
        if (plain) continue;
        first = std::min(first, n);
        last = n;
    }
    look.from = first > kSpread ? first - kSpread : 0;
    look.to = last + 1 + kSpread;
    return look;
}

// Medians over all kept blocks (half a second).
void CarrierWatch::settleMiddle() {
    if (spikes_.size() < kFewestKept) return;
    middleMean_ = middleOf(means_, means_.size());
    middleSpike_ = middleOf(spikes_, spikes_.size());
    middleLowest_ = middleOf(lowest_, lowest_.size());
    middleHighest_ = middleOf(highest_, highest_.size());
}

// Median of the `count` newest values.
float CarrierWatch::middleOf(const std::vector<float>& values, std::size_t count) {
    sorted_.clear();
    for (std::size_t back = 1; back <= count; ++back)
        sorted_.push_back(values[(next_ + values.size() - back) % values.size()]);
    const auto middle = sorted_.begin() + static_cast<std::ptrdiff_t>(count / 2);
    std::nth_element(sorted_.begin(), middle, sorted_.end());
    return *middle;
}

void CarrierWatch::endSlot() {
    if (blocks_ > 0) {
        roughness_ = meanSum_ > 0 ? roughSum_ / meanSum_ : 1;
        constexpr double kRemembered = 0.7;
        middleRoughness_ = middleRoughness_ >= 1
                               ? roughness_
                               : kRemembered * middleRoughness_ + (1 - kRemembered) * roughness_;
    } else if (without_ > kLongestGapBlocks) {
        roughness_ = 1;
    }
    settleMiddle();
    roughSum_ = 0;
    meanSum_ = 0;
    blocks_ = 0;
}

bool CarrierWatch::carrier() const {
    return without_ <= kLongestGapBlocks;
}

}  // namespace hm16::receiver
