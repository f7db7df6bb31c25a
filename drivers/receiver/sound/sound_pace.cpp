// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/sound/sound_pace.h"

#include <cmath>

namespace hm16::receiver {
namespace {

// Looks come every 10 ms: a mean over some five seconds, which is what it begins with too.
constexpr std::size_t kLooksToBegin = 500;
constexpr double kShare = 1.0 / kLooksToBegin;

constexpr double kFarOff = 0.04 * kSoundHz;
constexpr double kNearAgain = 0.005 * kSoundHz;
constexpr double kTrim = 0.002;

}  // namespace

void SoundPace::look(std::size_t waiting) {
    const auto now = static_cast<double>(waiting);
    ++looks_;
    if (looks_ <= kLooksToBegin) {
        mean_ += (now - mean_) / static_cast<double>(looks_);
        target_ = mean_;
        return;
    }
    mean_ += (now - mean_) * kShare;
    const double off = mean_ - target_;
    if (std::fabs(off) < kNearAgain) step_ = 1;
    if (off > kFarOff) step_ = 1 + kTrim;
    if (off < -kFarOff) step_ = 1 - kTrim;
}

// Straight lines between the samples: at two thousandths the difference lies far below the noise of
// any broadcast.
void SoundPace::process(std::span<const StereoSample> sound, std::vector<StereoSample>& out) {
    if (sound.empty()) return;
    if (!begun_) {
        begun_ = true;
        last_ = sound.front();
        place_ = 1;
    }
    const auto at = [&](std::size_t n) { return n == 0 ? last_ : sound[n - 1]; };
    const auto end = static_cast<double>(sound.size());
    while (place_ <= end) {
        const auto whole = static_cast<std::size_t>(place_);
        const auto part = static_cast<float>(place_ - std::floor(place_));
        if (part == 0) {
            out.push_back(at(whole));
        } else if (whole < sound.size()) {
            const StereoSample a = at(whole), b = at(whole + 1);
            out.push_back(
                {a.left + part * (b.left - a.left), a.right + part * (b.right - a.right)});
        } else {
            break;
        }
        place_ += step_;
    }
    place_ -= end;
    last_ = sound.back();
}

}  // namespace hm16::receiver
