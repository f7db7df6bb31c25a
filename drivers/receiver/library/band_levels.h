// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "drivers/receiver/figures/spectrum.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// The band's power over frequency, averaged over a stretch of samples.
class BandLevels {
 public:
    // The least samples that a stretch has.
    static constexpr std::size_t kLength = 4096;

    // `rateHz` and `centreHz`: the true values.
    BandLevels(double rateHz, double centreHz);

    void setCentre(double centreHz) { centreHz_ = centreHz; }

    // Measures the stretch; earlier ones are forgotten.
    void measure(std::span<const Sample> stretch);

    // Mean power within `widthHz` around `hz`; full scale is 1. 0 outside what is covered.
    double powerAt(double hz, double widthHz) const;

    // True if a channel of `widthHz` around `hz` lies within the samples' band.
    bool covers(double hz, double widthHz) const;

 private:
    double cumulative(double bins) const;

    double rateHz_;
    double centreHz_;
    Spectrum spectrum_;
    std::vector<double> below_;  // power below each bin's lower edge, lowest frequency first
};

}  // namespace hm16::receiver
