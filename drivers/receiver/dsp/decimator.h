// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace hm16::receiver {

// The three streaming filters of the chain. Each keeps the samples that it still needs and appends
// its output. There is no padding before the first sample, so the first output is complete.
//
// Timing: output k belongs to input time k * step + delay(), in input samples.

// Complex samples, real taps.
class ComplexDecimator {
 public:
    ComplexDecimator(const std::vector<double>& taps, std::size_t step);
    void process(std::span<const std::complex<float>> in, std::vector<std::complex<float>>& out);
    std::size_t step() const { return step_; }
    double delay() const { return delay_; }

 private:
    std::vector<float> taps_;
    std::size_t step_;
    double delay_;
    std::size_t skip_ = 0;
    std::vector<std::complex<float>> held_;
};

// Real samples, real taps.
class RealDecimator {
 public:
    RealDecimator(const std::vector<double>& taps, std::size_t step);
    void process(std::span<const float> in, std::vector<float>& out);
    std::size_t step() const { return step_; }
    std::size_t length() const { return taps_.size(); }
    double delay() const { return delay_; }

 private:
    std::vector<float> taps_;
    std::size_t step_;
    double delay_;
    std::size_t skip_ = 0;
    std::vector<float> held_;
};

// Real samples and a low-pass moved up to a band's centre: the output is the band around 0 Hz, with
// its phase against a cosine that had phase 0 at input sample 0.
class BandDecimator {
 public:
    // `turns`: the band's centre as a share of the input rate.
    BandDecimator(const std::vector<double>& lowPass, std::size_t step, double turns);
    void process(std::span<const float> in, std::vector<std::complex<float>>& out);
    std::size_t step() const { return step_; }
    double delay() const { return delay_; }

 private:
    std::vector<float> tapsRe_;
    std::vector<float> tapsIm_;
    std::size_t step_;
    double delay_;
    double turns_;
    double phase_;
    std::size_t skip_ = 0;
    std::vector<float> held_;
    std::vector<float> re_;
    std::vector<float> im_;
};

}  // namespace hm16::receiver
