// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/simulated/station.h"
#include "drivers/unit/unit.h"

namespace hm16::simulated {

// The tones of one frequency response run: the station sends eight tones one after the other, and
// the unit notes each at its end. A tone takes a second and a half, after a second of waiting for
// the first.
class ToneSequence {
 public:
    // Starts at `time`, seconds of the unit's time. Between stations (null) no tone is heard.
    ToneSequence(const Station* station, std::uint64_t seed, double time);

    bool ended(double time) const;

    // The tone on the air in Hz, 0 for none.
    int toneAt(double time) const;

    // The results of a run that was ended at `time`: a pair of zeros for each tone that had not
    // ended. The order of the pairs is the unit's, not that of the tones.
    ResponseResults results(double time) const;

 private:
    int tonesDone(double time) const;
    int levelOf(int tone) const;

    const Station* station_;
    std::uint64_t seed_;
    double start_;
};

}  // namespace hm16::simulated
