// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/figures/ring.h"
#include "drivers/receiver/figures/spectrum.h"

namespace hm16::receiver {

// The separation of the channels, measured block by block.
//
// With a tone in one channel: how much weaker the same tone is in the other one. On programme: how
// much louder one channel was than the other, which is never more than the true separation; the
// 95th percentile of all blocks of the last 20 seconds counts, so that one odd block does not.
class Separation {
 public:
    // `block`: samples of a block at `audioHz`.
    Separation(double audioHz, std::size_t block);

    void add(std::span<const float> left, std::span<const float> right);

    // In dB: how far the left channel is down in the right one, and the reverse; 0 if it is not
    // known.
    double leftDb() const { return left_.db(); }
    double rightDb() const { return right_.db(); }

 private:
    // One direction's blocks.
    struct Direction {
        Ring tones{20};
        Ring programme{400};
        double db() const;
    };

    // Power of a tone in a block, measured coherently at one frequency.
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
