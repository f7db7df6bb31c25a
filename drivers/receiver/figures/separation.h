// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/figures/ring.h"
#include "drivers/receiver/figures/spectrum.h"

namespace hm16::receiver {

// How far the channels are apart, judged block by block.
//
// With a tone in one channel: how much weaker the same tone is in the other one. On programme: by
// how much one channel was louder than the other, which true separation can only exceed; of all
// blocks of the last 20 seconds the 95th percentile, so that one odd block does not count.
class Separation {
 public:
    // `block`: samples of a block at `audioHz`.
    Separation(double audioHz, std::size_t block);

    void add(std::span<const float> left, std::span<const float> right);

    // In dB: how far the left channel is down in the right one, and the other way; 0 while nothing
    // can be said.
    double leftDb() const { return left_.db(); }
    double rightDb() const { return right_.db(); }

 private:
    // One direction's blocks.
    struct Direction {
        Ring tones{20};
        Ring programme{400};
        double db() const;
    };

    // Power of a tone in a block, coherent at one frequency.
    double lineAt(std::span<const float> block, double hz) const;
    void judge(std::span<const float> loud, std::span<const float> quiet, Direction& direction,
               Direction& other);

    double audioHz_;
    Spectrum spectrum_;
    std::vector<float> window_;
    Direction left_;
    Direction right_;
};

}  // namespace hm16::receiver
