// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// Moves a frequency of the band to 0 Hz. Its phase is kept in double and set anew every few
// hundred samples, so it does not drift however long it runs.
class Mixer {
 public:
    // `turns`: the frequency to be moved, as a share of the sample rate.
    explicit Mixer(double turns);

    // Another frequency from the next sample on; the phase goes on without a step.
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
