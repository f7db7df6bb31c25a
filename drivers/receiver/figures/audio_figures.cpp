// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/audio_figures.h"

#include <cmath>

namespace hm16::receiver {
namespace {

constexpr std::size_t kStepsPerBlock = 50;

std::size_t stepSamples(double audioHz) {
    return static_cast<std::size_t>(std::lround(audioHz * ProgrammeLevel::kStepSeconds));
}

}  // namespace

AudioFigures::AudioFigures(double audioHz)
    : step_(stepSamples(audioHz)),
      block_(step_ * kStepsPerBlock),
      separation_(audioHz, block_),
      tones_(audioHz) {}

void AudioFigures::add(std::span<const float> left, std::span<const float> right, bool stereo,
                       bool spoilt) {
    if (spoilt) {
        heldLeft_.clear();
        heldRight_.clear();
        tones_.forgetStretch();
        return;
    }
    heldLeft_.insert(heldLeft_.end(), left.begin(), left.end());
    heldRight_.insert(heldRight_.end(), right.begin(), right.end());
    while (heldLeft_.size() >= block_) takeBlock(stereo);
}

void AudioFigures::takeBlock(bool stereo) {
    const auto left = std::span<const float>(heldLeft_).first(block_);
    const auto right = std::span<const float>(heldRight_).first(block_);
    AudioPower whole;
    for (std::size_t from = 0; from < block_; from += step_) {
        const AudioPower power = audioPower(left.subspan(from, step_), right.subspan(from, step_));
        left_.add(power.left);
        right_.add(power.right);
        sum_.add(power.sum());
        difference_.add(power.difference());
        whole.left += power.left / kStepsPerBlock;
        whole.right += power.right / kStepsPerBlock;
        whole.cross += power.cross / kStepsPerBlock;
    }
    axis_.add(whole);
    noiseLeft_.add(whole.left);
    noiseRight_.add(whole.right);
    if (stereo) separation_.add(left, right);
    if (tones_.add(left, right)) ++looks_;
    const auto used = static_cast<std::ptrdiff_t>(block_);
    heldLeft_.erase(heldLeft_.begin(), heldLeft_.begin() + used);
    heldRight_.erase(heldRight_.begin(), heldRight_.begin() + used);
}

}  // namespace hm16::receiver
