// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "drivers/receiver/samples/sample_source.h"
#include "drivers/receiver/synth/composite_generator.h"
#include "drivers/receiver/synth/station_plan.h"

namespace hm16::receiver {

// One station on its carrier.
class StationGenerator {
 public:
    // `rateHz`: the true sample rate; `offsetHz`: the carrier's true distance from 0 Hz.
    StationGenerator(const StationPlan& plan, double rateHz, double offsetHz, std::uint64_t seed);

    // Adds the station to samples.
    void addTo(std::span<Sample> into);

 private:
    StationPlan plan_;
    double rateHz_;
    double offsetHz_;
    CompositeGenerator composite_;
    double phase_ = 0;  // in turns
    std::vector<double> deviation_;
    std::vector<Sample> direct_;
    std::size_t delay_;
};

}  // namespace hm16::receiver
