// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/figures/input_load.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

// 127 of 128: the highest that a signed converter of eight bits gives.
constexpr float kEnd = 0.992F;

// No converter gives more.
constexpr float kBeyond = 1.01F;

constexpr double kMostAtEnd = 1e-3;

}  // namespace

void InputLoad::add(std::span<const std::complex<float>> samples) {
    std::uint32_t atEnd = 0;
    float highest = 0;
    for (const std::complex<float>& sample : samples) {
        const float part = std::max(std::fabs(sample.real()), std::fabs(sample.imag()));
        atEnd += part >= kEnd ? 1U : 0U;
        highest = std::max(highest, part);
    }
    samples_ += samples.size();
    atEnd_ += atEnd;
    if (highest > kBeyond) otherScale_ = true;
}

bool InputLoad::endSlot() {
    const bool overload =
        !otherScale_ && static_cast<double>(atEnd_) > kMostAtEnd * static_cast<double>(samples_);
    *this = {};
    return overload;
}

}  // namespace hm16::receiver
