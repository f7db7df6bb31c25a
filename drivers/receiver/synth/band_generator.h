// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "drivers/receiver/samples/sample_source.h"
#include "drivers/receiver/synth/random.h"
#include "drivers/receiver/synth/station_plan.h"

namespace hm16::receiver {

class StationGenerator;

// A source of samples whose figures are all known: stations, second rays, noise and the faults of a
// cheap radio.
class BandGenerator : public SampleSource {
 public:
    explicit BandGenerator(const BandPlan& plan);
    ~BandGenerator() override;

    double rateHz() const override { return plan_.rateHz; }
    double centreHz() const override { return plan_.centreHz; }
    double converterStep() const override;
    std::size_t read(std::span<Sample> into) override;
    void rewind() override;

 private:
    void addNoise(std::span<Sample> into);
    void spoil(std::span<Sample> into) const;

    BandPlan plan_;
    Random random_;
    std::vector<std::unique_ptr<StationGenerator>> stations_;
};

}  // namespace hm16::receiver
