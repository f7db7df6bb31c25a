// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/chain/front_end.h"
#include "drivers/receiver/chain/rates.h"
#include "drivers/receiver/chain/station_chain.h"

namespace hm16::receiver {

// One station of the band: the front end that picks its channel out of a source's samples, and the
// chain after it. The multiplex of a composite source goes to the chain directly.
//
// Samples are processed in pieces of one fixed length, so that the figures do not depend on how
// many come at a time, not even by rounding; up to 2.5 ms of samples wait until their piece is
// complete.
class TunedStation {
 public:
    explicit TunedStation(const ChainSettings& settings);

    void push(std::span<const Sample> samples);

    // Announces that samples were lost before the next ones: `count` of them, whose time passes
    // nevertheless, or 0 if nobody knows how many. Of a long gap only half a second is processed;
    // returns how many samples were skipped.
    std::uint64_t lose(std::uint64_t count, Missing why = Missing::Lost);

    // Skips so many samples of a long gap.
    std::uint64_t longestGap() const;

    StationChain& chain() { return chain_; }
    const StationChain& chain() const { return chain_; }

    const Figures& figures() const { return chain_.figures(); }
    std::size_t slots() const { return chain_.slots(); }

 private:
    void pushPiece(std::span<const Sample> samples);

    Domain domain_;
    Rates rates_;
    std::size_t pieceLength_;
    std::vector<Sample> held_;  // of the incomplete piece
    std::uint64_t taken_ = 0;   // samples that have come, lost ones included
    FrontEnd frontEnd_;
    StationChain chain_;
    std::vector<Sample> channel_;
};

}  // namespace hm16::receiver
