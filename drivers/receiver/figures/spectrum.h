// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <memory>
#include <span>
#include <vector>

namespace hm16::receiver {

// Windowed transforms of one length. The window is the four-term Blackman-Harris, whose leakage is
// 92 dB down from 4 bins on.
class Spectrum {
 public:
    enum class Input { Real, Complex };

    // `length` a power of two; a shorter stretch is filled up with zeros.
    Spectrum(Input input, std::size_t length, std::size_t stretch);
    ~Spectrum();
    Spectrum(const Spectrum&) = delete;
    Spectrum& operator=(const Spectrum&) = delete;

    // Power of each bin, scaled so that the sum over the bins is the mean square of the stretch. A
    // real stretch gives length / 2 + 1 bins with both halves' power.
    std::span<const double> power(std::span<const float> stretch);
    // A complex one gives `length` bins, bin 0 first, negative frequencies at the end.
    std::span<const double> power(std::span<const std::complex<float>> stretch);

    std::size_t length() const { return length_; }
    std::size_t stretch() const { return window_.size(); }

    // Half width of a line's main lobe in bins.
    std::size_t lobeBins() const;

 private:
    struct Plan;

    std::size_t length_;
    std::vector<float> window_;
    double scale_;
    std::unique_ptr<Plan> plan_;
    std::vector<double> power_;
};

// The window on its own, `length` points.
std::vector<float> blackmanHarris(std::size_t length);

}  // namespace hm16::receiver
