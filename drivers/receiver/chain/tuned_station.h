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
// chain behind it. The multiplex of a composite source goes to the chain as it is.
//
// The samples are worked on in pieces of one fixed length, so that the figures do not depend, not
// even by a rounding, on how many come at a time; up to 2.5 ms of them wait for the rest of their
// piece.
class TunedStation {
 public:
    explicit TunedStation(const ChainSettings& settings);

    void push(std::span<const Sample> samples);

    // Says that samples were lost in front of those that come next: `count` of them, whose time
    // passes all the same, or 0 when nobody knows how many. Of a long gap half a second passes;
    // gives how many samples more there were.
    std::uint64_t lose(std::uint64_t count, Missing why = Missing::Lost);

    // So many samples of a long gap pass.
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
    std::vector<Sample> held_;  // of the piece that is not full yet
    std::uint64_t taken_ = 0;   // samples that have come, lost ones counted
    FrontEnd frontEnd_;
    StationChain chain_;
    std::vector<Sample> channel_;
};

}  // namespace hm16::receiver
