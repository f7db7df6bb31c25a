// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace hm16::simulated {

// Reproducible random numbers: every value is a pure function of seed, stream and place, so that a
// run with the same seed shows the same figures at the same times, however often they are read. Two
// streams of one seed are independent.
class Chance {
 public:
    constexpr Chance(std::uint64_t seed, std::uint64_t stream) : key_(mix(seed ^ mix(stream))) {}

    // Uniform from 0 up to but not including 1, independent for each number.
    double even(std::int64_t number) const;

    // A smooth random curve over time, from -1 to 1, with about one swing in each `period` seconds.
    double wander(double time, double period) const;

 private:
    static constexpr std::uint64_t mix(std::uint64_t x) {
        x += 0x9e3779b97f4a7c15u;
        x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9u;
        x = (x ^ (x >> 27)) * 0x94d049bb133111ebu;
        return x ^ (x >> 31);
    }

    std::uint64_t key_;
};

}  // namespace hm16::simulated
