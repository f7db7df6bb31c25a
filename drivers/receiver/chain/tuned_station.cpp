// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/chain/tuned_station.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace hm16::receiver {
namespace {

// Samples handled at once: they stay in the processor's cache along the chain, and delay no slot.
constexpr std::size_t kLongestPiece = 8192;
constexpr double kPieceSeconds = 0.0025;

// A gap is filled up to this length; the rest of a longer one is left out.
constexpr double kLongestGapSeconds = 0.5;

}  // namespace

TunedStation::TunedStation(const ChainSettings& settings)
    : domain_(settings.domain),
      rates_(planRates(settings.rateHz, settings.domain)),
      pieceLength_(std::min(kLongestPiece,
                            static_cast<std::size_t>(std::lround(kPieceSeconds * rates_.source)))),
      frontEnd_(rates_, settings.offsetHz),
      chain_(settings, rates_, frontEnd_.shape()) {}

void TunedStation::push(std::span<const Sample> samples) {
    taken_ += samples.size();
    while (!samples.empty()) {
        if (held_.empty() && samples.size() >= pieceLength_) {
            pushPiece(samples.first(pieceLength_));
            samples = samples.subspan(pieceLength_);
            continue;
        }
        const auto part = samples.first(std::min(samples.size(), pieceLength_ - held_.size()));
        held_.insert(held_.end(), part.begin(), part.end());
        samples = samples.subspan(part.size());
        if (held_.size() < pieceLength_) continue;
        pushPiece(held_);
        held_.clear();
    }
}

std::uint64_t TunedStation::longestGap() const {
    return static_cast<std::uint64_t>(kLongestGapSeconds * rates_.source);
}

std::uint64_t TunedStation::lose(std::uint64_t count, Missing why) {
    const std::uint64_t filled = std::min(count, longestGap());
    const std::uint64_t to = taken_ + filled;
    if (domain_ == Domain::Band) {
        const FrontEnd::Reach reach = frontEnd_.reach(taken_, to);
        chain_.spoil(reach.from, reach.to, count, why);
    } else {
        chain_.spoil(taken_, to, count, why);
    }
    const std::vector<Sample> nothing(static_cast<std::size_t>(filled));
    push(nothing);
    return count - filled;
}

void TunedStation::pushPiece(std::span<const Sample> samples) {
    if (domain_ == Domain::Composite) {
        chain_.push(samples);
        return;
    }
    channel_.clear();
    frontEnd_.process(samples, channel_);
    chain_.push(channel_);
}

}  // namespace hm16::receiver
