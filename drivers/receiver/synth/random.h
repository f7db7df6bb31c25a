// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>

namespace hm16::receiver {

// Repeatable random numbers, the same on every machine (xoshiro256++).
class Random {
 public:
    explicit Random(std::uint64_t seed) {
        for (std::uint64_t& word : state_) {
            seed += 0x9E3779B97F4A7C15U;
            std::uint64_t z = seed;
            z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
            z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
            word = z ^ (z >> 31U);
        }
    }

    std::uint64_t next() {
        const std::uint64_t result = std::rotl(state_[0] + state_[3], 23) + state_[0];
        const std::uint64_t t = state_[1] << 17U;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= t;
        state_[3] = std::rotl(state_[3], 45);
        return result;
    }

    // From 0 up to but not including 1.
    double uniform() { return static_cast<double>(next() >> 11U) * 0x1p-53; }

    // Gaussian noise of mean power 1.
    std::complex<float> noise() {
        const auto u = static_cast<float>((next() >> 40U) + 1) * 0x1p-24F;
        const auto angle = static_cast<float>(2 * std::numbers::pi * uniform());
        const float length = std::sqrt(-std::log(u));
        return {length * std::cos(angle), length * std::sin(angle)};
    }

 private:
    std::uint64_t state_[4];
};

}  // namespace hm16::receiver
