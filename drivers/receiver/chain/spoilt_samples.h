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
// What is spoilt never goes down the chain: a short stretch is bridged by a straight line, a long
// one filled with what a carrier without modulation would give. So nothing rings, and all that is
// measured over longer than a slot goes on as if nothing had been.
class SpoiltSamples {
 public:
    // Spans may overlap and come in any order, but not after their samples were mended.
    void add(std::uint64_t from, std::uint64_t to);

    // Mends the first `count` of these samples, of which the first has the number `first`.
    // `carrierHz`: where the carrier is.
    void mend(std::uint64_t first, std::size_t count, std::span<float> frequency, float carrierHz);

    // Calls with each stretch of [first, first + count) in which nothing is spoilt, counted from
    // `first` on.
    void eachClean(std::uint64_t first, std::size_t count,
                   const std::function<void(std::size_t from, std::size_t to)>& call) const;

    // The place itself, or the beginning of the bridge that it would cut.
    std::uint64_t besideBridges(std::uint64_t place) const;

    // True when a span lies in [from, to) or touches it.
    bool touches(std::uint64_t from, std::uint64_t to) const;

    // True when one of those is longer than `length`.
    bool touchesLonger(std::uint64_t from, std::uint64_t to, std::uint64_t length) const;

    // Forgets what ends before `place`.
    void forget(std::uint64_t place);

 private:
    struct Span {
        std::uint64_t from;
        std::uint64_t to;
        std::optional<float> before;  // the last good sample, once it is known
    };
    std::deque<Span> spans_;  // by their beginnings, apart from each other
};

}  // namespace hm16::receiver
