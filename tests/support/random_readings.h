// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <random>

#include "program/driver.h"

namespace hmonitor::test {

/// Readings anywhere in the ranges that the panels are built for.
class RandomReadings {
 public:
    void put(Readings& readings) {
        for (std::size_t i = 0; i < figures::kDataOutputs; ++i) {
            readings.*figures::kOutputs[i] = between(0, 100);
        }
        readings.stereoPhase = between(-10, 100);
        readings.pilotError = between(-99, 99);
        readings.noiseLeft = between(-90, 0);
        readings.noiseRight = between(-90, 0);
        readings.distortion = between(0, 10);
    }

 private:
    float between(float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(generator_);
    }
    std::mt19937 generator_{1};
};

}  // namespace hmonitor::test
