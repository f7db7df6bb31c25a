// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// Shifts a frequency of the band to 0 Hz. The phase is kept in double precision and recomputed
// every few hundred samples, so it does not drift.
class Mixer {
 public:
    // `turns`: the frequency to be moved, as a share of the sample rate.
    explicit Mixer(double turns);

    // Changes the frequency from the next sample on, with continuous phase.
    void setTurns(double turns);

    // Mixes in place.
    void process(std::span<std::complex<float>> samples);

 private:
    static constexpr std::size_t kTable = 512;

    double turns_;
    double phase_ = 0;
    std::vector<float> cosines_;  // each value twice
    std::vector<float> sines_;
};

}  // namespace hm16::receiver
