// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/dsp/decimator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drivers/receiver/dsp/kernels.h"

namespace hm16::receiver {
namespace {

std::size_t padded(std::size_t floats) {
    return (floats + kKernelFloats - 1) / kKernelFloats * kKernelFloats;
}

// Appends a block to the held samples, without those that a step longer than the filter skips.
template <typename Value>
void append(std::vector<Value>& held, std::span<const Value> in, std::size_t& skip) {
    const std::size_t dropped = std::min(skip, in.size());
    skip -= dropped;
    held.insert(held.end(), in.begin() + static_cast<std::ptrdiff_t>(dropped), in.end());
}

std::size_t outputsIn(std::size_t held, std::size_t window, std::size_t step) {
    return held < window ? 0 : (held - window) / step + 1;
}

template <typename Value>
void dropUsed(std::vector<Value>& held, std::size_t used, std::size_t& skip) {
    const std::size_t dropped = std::min(used, held.size());
    skip += used - dropped;
    held.erase(held.begin(), held.begin() + static_cast<std::ptrdiff_t>(dropped));
}

double centreOf(const std::vector<double>& taps) {
    return (static_cast<double>(taps.size()) - 1) / 2;
}

}  // namespace

ComplexDecimator::ComplexDecimator(const std::vector<double>& taps, std::size_t step)
    : taps_(padded(2 * taps.size()), 0.0F), step_(step), delay_(centreOf(taps)) {
    for (std::size_t i = 0; i < taps.size(); ++i)
        taps_[2 * i] = taps_[2 * i + 1] = static_cast<float>(taps[i]);
}

void ComplexDecimator::process(std::span<const std::complex<float>> in,
                               std::vector<std::complex<float>>& out) {
    append(held_, in, skip_);
    const std::size_t outputs = outputsIn(held_.size(), taps_.size() / 2, step_);
    const std::size_t before = out.size();
    out.resize(before + outputs);
    filterComplex(reinterpret_cast<const float*>(held_.data()), taps_.data(), taps_.size(), step_,
                  outputs, reinterpret_cast<float*>(out.data() + before));
    dropUsed(held_, outputs * step_, skip_);
}

RealDecimator::RealDecimator(const std::vector<double>& taps, std::size_t step)
    : taps_(padded(taps.size()), 0.0F), step_(step), delay_(centreOf(taps)) {
    for (std::size_t i = 0; i < taps.size(); ++i) taps_[i] = static_cast<float>(taps[i]);
}

void RealDecimator::process(std::span<const float> in, std::vector<float>& out) {
    append(held_, in, skip_);
    const std::size_t outputs = outputsIn(held_.size(), taps_.size(), step_);
    const std::size_t before = out.size();
    out.resize(before + outputs);
    filterReal(held_.data(), taps_.data(), taps_.size(), step_, outputs, out.data() + before);
    dropUsed(held_, outputs * step_, skip_);
}

BandDecimator::BandDecimator(const std::vector<double>& lowPass, std::size_t step, double turns)
    : tapsRe_(padded(lowPass.size()), 0.0F),
      tapsIm_(tapsRe_),
      step_(step),
      delay_(centreOf(lowPass)),
      turns_(turns),
      phase_(turns * delay_) {
    for (std::size_t i = 0; i < lowPass.size(); ++i) {
        const double angle = -2 * std::numbers::pi * turns * (static_cast<double>(i) - delay_);
        tapsRe_[i] = static_cast<float>(lowPass[i] * std::cos(angle));
        tapsIm_[i] = static_cast<float>(lowPass[i] * std::sin(angle));
    }
}

void BandDecimator::process(std::span<const float> in, std::vector<std::complex<float>>& out) {
    append(held_, in, skip_);
    const std::size_t outputs = outputsIn(held_.size(), tapsRe_.size(), step_);
    re_.resize(outputs);
    im_.resize(outputs);
    filterReal(held_.data(), tapsRe_.data(), tapsRe_.size(), step_, outputs, re_.data());
    filterReal(held_.data(), tapsIm_.data(), tapsIm_.size(), step_, outputs, im_.data());
    const double turnsPerOutput = turns_ * static_cast<double>(step_);
    for (std::size_t o = 0; o < outputs; ++o) {
        const double angle = -2 * std::numbers::pi * phase_;
        out.push_back(std::complex<float>(re_[o], im_[o]) *
                      std::complex<float>(static_cast<float>(std::cos(angle)),
                                          static_cast<float>(std::sin(angle))));
        phase_ += turnsPerOutput;
        phase_ -= std::floor(phase_);
    }
    dropUsed(held_, outputs * step_, skip_);
}

}  // namespace hm16::receiver
