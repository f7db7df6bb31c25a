// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// The effect of a coarse analogue-to-digital converter on the measured strength of a carrier.
//
// Each threshold that a sine crosses adds a square wave of one step, so a sine of a few steps is
// measured up to 0.3 dB too strong or too weak at four steps, depending on how near its crests are
// to the next threshold. Noise and other stations on top of it blur the thresholds and remove the
// effect.
class CoarseConverter {
 public:
    // `step`: between two neighbouring values, full scale is 1; 0 for a converter too fine to
    // matter.
    explicit CoarseConverter(double step) : step_(step) {}

    // Finds the thresholds and the contents of the band from samples.
    void look(std::span<const Sample> stretch);

    // The power of a carrier before the converter, from the `power` measured after it. The carrier
    // must have a steady amplitude: coarsely converted noise cannot be corrected this way.
    double powerBefore(double power) const;

 private:
    double step_;
    // In steps.
    double centreI_ = 0;  // of the band's samples, above a threshold
    double centreQ_ = 0;
    double total_ = 0;  // mean power without the samples' mean
};

// The amplitude, after the converter, of a sine around `centre` with noise of an rms of `noise`;
// all in steps, with a threshold at 0.
double amplitudeBehind(double amplitude, double centre, double noise);

}  // namespace hm16::receiver
