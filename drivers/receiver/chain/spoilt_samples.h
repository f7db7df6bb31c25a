// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>

namespace hm16::receiver {

// The positions of missing or corrupt samples of a channel, counted since the channel began.
//
// Such samples never go down the chain: a short stretch is replaced by a straight line, a long one
// by an unmodulated carrier. So no filter rings, and everything that is measured over longer than a
// slot goes on undisturbed.
class SpoiltSamples {
 public:
    // Spans may overlap and come in any order, but not after their samples were mended.
    void add(std::uint64_t from, std::uint64_t to);

    // Replaces the spoilt ones among the first `count` of these samples; the first has the number
    // `first`. `carrierHz`: where the carrier is.
    void mend(std::uint64_t first, std::size_t count, std::span<float> frequency, float carrierHz);

    // Calls `each` with every stretch of [first, first + count) in which nothing is spoilt, counted
    // from `first`.
    void eachClean(std::uint64_t first, std::size_t count,
                   const std::function<void(std::size_t from, std::size_t to)>& call) const;

    // The place itself or, if it lies in a bridged stretch, the begin of that stretch.
    std::uint64_t besideBridges(std::uint64_t place) const;

    // True if a span overlaps [from, to) or touches it.
    bool touches(std::uint64_t from, std::uint64_t to) const;

    // True if one of those is longer than `length`.
    bool touchesLonger(std::uint64_t from, std::uint64_t to, std::uint64_t length) const;

    // Forgets spans that end before `place`.
    void forget(std::uint64_t place);

 private:
    struct Span {
        std::uint64_t from;
        std::uint64_t to;
        std::optional<float> before;  // the last good sample; none at first
    };
    std::deque<Span> spans_;  // sorted by their begin; they do not overlap
};

}  // namespace hm16::receiver
