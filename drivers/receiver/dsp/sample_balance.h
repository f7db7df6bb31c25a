// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace hm16::receiver {

// What a cheap radio does to its samples: adds a constant, makes Q stronger than I, and lets them
// stand at another angle than 90 degrees, which mirrors each station on the other side of the
// centre.
struct SampleFault {
    std::complex<double> constant = 0;
    double gain = 1;  // of Q against I
    double skew = 0;  // sine of the angle that is missing

    bool operator==(const SampleFault&) const = default;
};

// Finds such faults without knowing the signal, and takes them out. Over a second the samples of
// stations off the centre have no mean, equal power in I and Q, and nothing in common between them.
// A carrier near the centre has, but not twice alike: a fault must be the same in three seconds in
// a row before it is believed, and then moves slowly.
class SampleBalance {
 public:
    explicit SampleBalance(double rateHz);

    // Takes a stretch in and gives it corrected: `samples` themselves where nothing is to be
    // corrected, else memory that stays as it is until the next call.
    std::span<const std::complex<float>> correct(std::span<const std::complex<float>> samples);

    // What is taken out; a fault of 0 where there is none to speak of.
    const SampleFault& fault() const { return fault_; }
    bool corrects() const { return fault_ != SampleFault(); }

 private:
    struct Sums {
        double count = 0;
        double i = 0;
        double q = 0;
        double ii = 0;
        double qq = 0;
        double iq = 0;
    };

    void look(std::span<const std::complex<float>> samples);
    void addBlock(std::span<const std::complex<float>> samples);
    void endSecond();

    std::size_t perSecond_;
    std::size_t taken_ = 0;
    std::size_t inBlock_ = 0;
    bool blockCounts_ = false;
    std::uint32_t dice_ = 1;
    Sums sums_;
    std::vector<SampleFault> seen_;  // of the last seconds
    SampleFault known_;
    bool isKnown_ = false;
    SampleFault fault_;
    std::vector<std::complex<float>> corrected_;
};

}  // namespace hm16::receiver
