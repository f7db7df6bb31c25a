// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace hm16::receiver {

// The faults of a cheap radio's samples: a constant is added, Q is stronger than I, and they are
// not at 90 degrees to each other, which mirrors each station to the other side of the centre.
struct SampleFault {
    std::complex<double> constant = 0;
    double gain = 1;  // of Q against I
    double skew = 0;  // sine of the angle that is missing

    bool operator==(const SampleFault&) const = default;
};

// Finds such faults without knowing the signal, and corrects them. Over a second, the samples of
// stations off the centre have a mean of zero, equal power in I and Q, and no correlation between
// them. A carrier near the centre does not, but never in the same way twice: a fault must be the
// same for three seconds in a row before it is corrected, and then changes slowly.
class SampleBalance {
 public:
    explicit SampleBalance(double rateHz);

    // Measures a stretch and returns it corrected: `samples` themselves if nothing is corrected,
    // else memory that is valid until the next call.
    std::span<const std::complex<float>> correct(std::span<const std::complex<float>> samples);

    // What is being corrected; 0 for a fault that is negligible.
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
