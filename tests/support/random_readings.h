// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>

#include "program/driver.h"

namespace hmonitor::test {

/// Readings anywhere in the ranges that the panels are built for.
class RandomReadings {
 public:
    void put(Readings& readings) {
        for (int output = 1; output <= 16; ++output) readings.output(output) = between(0, 100);
        readings.output(4) = between(-10, 100);
        readings.output(6) = between(-99, 99);
        readings.output(8) = between(-90, 0);
        readings.output(9) = between(-90, 0);
        readings.output(12) = between(0, 10);
    }

 private:
    float between(float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(generator_);
    }
    std::mt19937 generator_{1};
};

}  // namespace hmonitor::test
