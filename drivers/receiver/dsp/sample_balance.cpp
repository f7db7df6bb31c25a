// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/sample_balance.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr std::size_t kBlockSamples = 512;  // one block in four is looked at
constexpr std::size_t kAlike = 3;           // seconds
constexpr double kMovesOn = 0.2;            // of a second's fault

// Less than this is not told from chance, and reaches no figure. Shares of the samples' rms.
constexpr double kLeastFault = 0.005;
constexpr double kLeastConstant = 0.002;

// More than this is no fault of a radio, but a carrier in the middle.
constexpr double kMostFault = 0.3;

// How far seconds may differ.
constexpr double kSpread = 0.1;
constexpr double kSpreadOfChance = 0.004;

bool near(double a, double b, double unit) {
    return std::fabs(a - b) <
           kSpread * std::max(std::fabs(a), std::fabs(b)) + kSpreadOfChance * unit;
}

}  // namespace

SampleBalance::SampleBalance(double rateHz)
    : perSecond_(static_cast<std::size_t>(std::lround(rateHz))) {}

std::span<const std::complex<float>> SampleBalance::correct(
    std::span<const std::complex<float>> samples) {
    look(samples);
    if (!corrects()) return samples;
    // The angle is turned back onto I.
    const double cosine = std::sqrt(1 - fault_.skew * fault_.skew);
    const auto alongQ = static_cast<float>(1 / (fault_.gain * cosine));
    const auto alongI = static_cast<float>(-fault_.skew / cosine);
    const auto constantI = static_cast<float>(fault_.constant.real());
    const auto constantQ = static_cast<float>(fault_.constant.imag());
    corrected_.resize(samples.size());
    for (std::size_t n = 0; n < samples.size(); ++n) {
        const float i = samples[n].real() - constantI;
        const float q = samples[n].imag() - constantQ;
        corrected_[n] = {i, q * alongQ + i * alongI};
    }
    return corrected_;
}

// Blocks at random places: at even distances a tone could stand still.
void SampleBalance::look(std::span<const std::complex<float>> samples) {
    taken_ += samples.size();
    while (!samples.empty()) {
        if (inBlock_ == 0) {
            dice_ = dice_ * 1664525U + 1013904223U;
            blockCounts_ = dice_ >> 30U == 0;
        }
        const auto part = samples.first(std::min(samples.size(), kBlockSamples - inBlock_));
        if (blockCounts_) addBlock(part);
        inBlock_ = (inBlock_ + part.size()) % kBlockSamples;
        samples = samples.subspan(part.size());
    }
    if (taken_ >= perSecond_) endSecond();
}

void SampleBalance::addBlock(std::span<const std::complex<float>> samples) {
    constexpr std::size_t kLanes = 8;
    float i[kLanes] = {};
    float q[kLanes] = {};
    float ii[kLanes] = {};
    float qq[kLanes] = {};
    float iq[kLanes] = {};
    for (std::size_t n = 0; n < samples.size(); ++n) {
        const std::size_t lane = n % kLanes;
        const float real = samples[n].real();
        const float imag = samples[n].imag();
        i[lane] += real;
        q[lane] += imag;
        ii[lane] += real * real;
        qq[lane] += imag * imag;
        iq[lane] += real * imag;
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        sums_.i += i[lane];
        sums_.q += q[lane];
        sums_.ii += ii[lane];
        sums_.qq += qq[lane];
        sums_.iq += iq[lane];
    }
    sums_.count += static_cast<double>(samples.size());
}

void SampleBalance::endSecond() {
    const Sums sums = sums_;
    sums_ = {};
    taken_ = 0;
    const double meanI = sums.i / sums.count;
    const double meanQ = sums.q / sums.count;
    const double powerI = sums.ii / sums.count - meanI * meanI;
    const double powerQ = sums.qq / sums.count - meanQ * meanQ;
    if (sums.count == 0 || !(powerI > 0) || !(powerQ > 0)) return;
    const double rms = std::sqrt(powerI + powerQ);
    const SampleFault now{{meanI, meanQ},
                          std::sqrt(powerQ / powerI),
                          (sums.iq / sums.count - meanI * meanQ) / std::sqrt(powerI * powerQ)};
    seen_.push_back(now);
    if (seen_.size() > kAlike) seen_.erase(seen_.begin());
    const bool small = std::abs(now.constant) < kMostFault * rms &&
                       std::fabs(std::log(now.gain)) < kMostFault &&
                       std::fabs(now.skew) < kMostFault;
    const bool alike =
        seen_.size() == kAlike && std::all_of(seen_.begin(), seen_.end(), [&](const auto& other) {
            return near(other.constant.real(), now.constant.real(), rms) &&
                   near(other.constant.imag(), now.constant.imag(), rms) &&
                   near(other.gain, now.gain, 1) && near(other.skew, now.skew, 1);
        });
    if (!small || !alike) return;
    if (!isKnown_) {
        known_ = now;
    } else {
        known_.constant += kMovesOn * (now.constant - known_.constant);
        known_.gain += kMovesOn * (now.gain - known_.gain);
        known_.skew += kMovesOn * (now.skew - known_.skew);
    }
    isKnown_ = true;
    fault_ = {};
    if (std::abs(known_.constant) > kLeastConstant * rms) fault_.constant = known_.constant;
    if (std::fabs(known_.gain - 1) > kLeastFault) fault_.gain = known_.gain;
    if (std::fabs(known_.skew) > kLeastFault) fault_.skew = known_.skew;
}

}  // namespace hm16::receiver
