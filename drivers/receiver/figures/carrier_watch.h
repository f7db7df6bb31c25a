// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/figures/figures.h"

namespace hm16::receiver {

// Examines a channel's frequency and envelope in blocks of about a millisecond, and tells carrier
// from noise.
//
// Noise makes the envelope differ from one sample to the next; fades, gain steps and the beat of a
// fluttering aerial are slow in comparison. So the roughness is calculated from second differences,
// and a changing level is never taken for noise.
//
// A burst of spoilt samples, or a splice where some are missing, makes the frequency jump as no
// multiplex does: the fourth difference suppresses nearly everything below 60 kHz, but no jump. A
// block whose fourth difference is far above the median of the last half second is a burst. A block
// without a carrier among blocks with a good one is a gap.
class CarrierWatch {
 public:
    static constexpr std::size_t kBlock = 512;

    // The samples that are needed on each side of a block.
    static constexpr std::size_t kBeside = 2;

    enum class Finding { Carrier, Burst, Gap };

    struct Look {
        Finding finding = Finding::Carrier;
        // The samples of the block that belong to the burst.
        std::size_t from = 0;
        std::size_t to = 0;
    };

    // `rateHz` of the samples; `roughening`: mean square of the second difference of noise behind
    // the channel's filter, as a share of its variance.
    CarrierWatch(double rateHz, double roughening);

    // Call this when the filter changes. Beside a strong neighbour, whose beat looks like bursts,
    // none are looked for.
    enum class Bursts { Sought, NotSought };
    void setFilter(double roughening, Bursts bursts) {
        roughening_ = roughening;
        bursts_ = bursts;
    }

    // Strong echoes take the carrier through nulls that look like bursts, so none are looked for
    // then.
    void setEchoes(bool strong) { echoes_ = strong; }

    // `frequency` and `envelope` point to a block's first sample, with kBeside more before and
    // after it.
    Look look(const float* frequency, const float* envelope);

    // Ends a slot; roughness() then is that of the slot's blocks.
    void endSlot();

    // Variance of the envelope over its mean square, fast changes only: 0 is a clean carrier, about
    // 0.3 noise alone. 1 if there is no power.
    double roughness() const { return roughness_; }

    // False if there was no carrier for longer than a gap can last.
    bool carrier() const;

 private:
    struct Block {
        double mean = 0;
        double rough = 0;
        float spike = 0;
        float lowest = 0;  // of the envelope
        float highest = 0;
    };
    // The thresholds for a block.
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
    std::size_t without_ = 0;  // consecutive blocks without a carrier
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
