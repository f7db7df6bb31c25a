// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "drivers/receiver/synth/station_plan.h"

namespace hm16::receiver {

// Bits of groups 0A (station name) and 2A (text) with valid checks, in the order of sending and
// before differential coding.
std::vector<bool> rdsBits(const RdsPlan& plan);

// The data signal on the subcarrier, which repeats for ever; its highest value is 1. Without data
// in the plan there is none.
class RdsWaveform {
 public:
    explicit RdsWaveform(const RdsPlan& plan);

    // Value at a time counted in bits from the start.
    double at(double bits) const;

 private:
    static constexpr int kPointsPerBit = 32;

    std::vector<float> points_;
    double length_ = 0;
};

}  // namespace hm16::receiver
