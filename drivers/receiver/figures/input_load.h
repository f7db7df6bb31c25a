// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstdint>
#include <span>

namespace hm16::receiver {

// Whether a converter is overdriven: its samples are at the end of its range. Must get the samples
// as they came, before anything is corrected; 1.0 is full scale. Floats beyond that have another
// scale, so nothing can be said about them.
class InputLoad {
 public:
    void add(std::span<const std::complex<float>> samples);

    // Ends a slot. True if more than a thousandth of its samples were at the end of the range.
    bool endSlot();

 private:
    std::uint64_t samples_ = 0;
    std::uint64_t atEnd_ = 0;
    bool otherScale_ = false;
};

}  // namespace hm16::receiver
