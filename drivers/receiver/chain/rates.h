// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// Length of the slots in which figures are taken, as ITU-R SM.1268 has them.
inline constexpr double kSlotSeconds = 0.05;

inline constexpr double kPilotHz = 19000;
inline constexpr double kDifferenceHz = 38000;

// The sample rates along the chain. All are the source's rate divided by whole numbers, so nothing
// is resampled and every delay is known to the sample.
struct Rates {
    double source = 0;
    std::size_t channelStep = 1;
    double channel = 0;  // the tuned channel, complex: 500 kHz or more where the source allows
    std::size_t compositeStep = 1;
    double composite = 0;  // the multiplex, real: 250 kHz or more where the source allows
    std::size_t audioStep = 1;
    double audio = 0;  // sum and difference: about 50 kHz
    std::size_t narrowStep = 1;
    double narrow = 0;  // pilot and RDS bands: about 12.5 kHz
    std::size_t pilotStep = 1;
    double pilot = 0;  // the pilot's points: about 500 Hz
};

// `sourceHz`: the true rate, with the clock's error corrected.
Rates planRates(double sourceHz, Domain domain);

}  // namespace hm16::receiver
