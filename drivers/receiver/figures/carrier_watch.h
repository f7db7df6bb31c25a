// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/figures/figures.h"

namespace hm16::receiver {

// Looks at a channel's frequency and envelope block by block, about a millisecond at a time, and
// tells what is a carrier and what is not.
//
// Noise makes the envelope differ from one sample to the next; fades, gain steps and the beat of a
// fluttering aerial are slow beside that. So the roughness is taken from second differences, and a
// level that moves is never taken for noise.
//
// A burst of spoilt samples, or a splice where some are missing, makes the frequency jump as no
// multiplex does: the fourth difference passes next to nothing below 60 kHz and all of a jump. What
// stands far out of the middle one of the blocks of the last half second is a burst. A block
// without a carrier among blocks with a good one is a gap.
class CarrierWatch {
 public:
    static constexpr std::size_t kBlock = 512;

    // Samples that a look at a block needs on each side of it.
    static constexpr std::size_t kBeside = 2;

    enum class Finding { Carrier, Burst, Gap };

    struct Look {
        Finding finding = Finding::Carrier;
        // The burst's samples of the block.
        std::size_t from = 0;
        std::size_t to = 0;
    };

    // `rateHz` of the samples; `roughening`: mean square of the second difference of noise behind
    // the channel's filter, as a share of its variance.
    CarrierWatch(double rateHz, double roughening);

    // For another filter. Beside a strong neighbour, whose beat looks like bursts, none are sought.
    enum class Bursts { Sought, NotSought };
    void setFilter(double roughening, Bursts bursts) {
        roughening_ = roughening;
        bursts_ = bursts;
    }

    // Strong echoes take the carrier through nulls that look like bursts: then none are sought.
    void setEchoes(bool strong) { echoes_ = strong; }

    // `frequency` and `envelope` point to a block's first sample, with kBeside more on each side.
    Look look(const float* frequency, const float* envelope);

    // Ends a slot; roughness() is then that of its blocks.
    void endSlot();

    // Variance of the envelope over its mean square, fast moves only: 0 is a clean carrier, some
    // 0.3 noise without any. 1 where there is no power.
    double roughness() const { return roughness_; }

    // False after so long a time without a carrier that it is no gap any more.
    bool carrier() const;

 private:
    struct Block {
        double mean = 0;
        double rough = 0;
        float spike = 0;
        float lowest = 0;  // of the envelope
        float highest = 0;
    };
    // What a block must not pass.
    struct Limits {
        float spike;
        float lowest;
        float highest;
    };
    Block measured(const float* frequency, const float* envelope) const;
    Finding judged(const Block& block);
    Limits limitsFor(const Block& block);
    float middleOf(const std::vector<float>& values, std::size_t count);
    void settleMiddle();

    double roughening_;
    Bursts bursts_ = Bursts::Sought;
    bool echoes_ = false;
    float leastSpikeHz_;
    double roughSum_ = 0;
    double meanSum_ = 0;
    std::size_t blocks_ = 0;
    double roughness_ = 1;
    std::size_t without_ = 0;  // blocks in a row without a carrier
    // Of the last blocks; the envelope's ends as shares of its mean.
    std::vector<float> spikes_;
    std::vector<float> means_;
    std::vector<float> lowest_;
    std::vector<float> highest_;
    std::vector<bool> burst_;
    std::size_t next_ = 0;
    std::size_t burstsKept_ = 0;  // of the blocks kept
    Limits limits_{};
    float middleSpike_ = 0;
    float middleMean_ = 0;
    float middleLowest_ = 1;
    float middleHighest_ = 1;
    double middleRoughness_ = 1;
    std::vector<float> sorted_;
};

}  // namespace hm16::receiver
