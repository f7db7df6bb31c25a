// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstdint>
#include <span>

namespace hm16::receiver {

// Whether a converter is driven too hard: its samples stand at its end. Only samples as they came
// tell it, before anything corrects them; 1.0 is full scale. Floats that go beyond have another
// scale, and nothing can be said of them.
class InputLoad {
 public:
    void add(std::span<const std::complex<float>> samples);

    // Ends a slot. True when more than a thousandth of its samples stood at the end.
    bool endSlot();

 private:
    std::uint64_t samples_ = 0;
    std::uint64_t atEnd_ = 0;
    bool otherScale_ = false;
};

}  // namespace hm16::receiver
