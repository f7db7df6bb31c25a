// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/simulated/station.h"
#include "drivers/unit/unit.h"

namespace hm16::simulated {

// The tones of one frequency response run: the station sends eight tones one after the other, and
// the unit notes each when it ends. A tone takes a second and a half, behind a second in which the
// unit waits for the first.
class ToneSequence {
 public:
    // Starts at `time`, seconds of the unit's time. Between stations (null) no tone is heard.
    ToneSequence(const Station* station, std::uint64_t seed, double time);

    bool ended(double time) const;

    // The tone on the air in Hz, 0 for none.
    int toneAt(double time) const;

    // What a run that was ended at `time` gives: a pair of zeros for each tone that had not ended.
    // The pairs come in the unit's own order, which is not that of the tones.
    ResponseResults results(double time) const;

 private:
    int tonesDone(double time) const;
    int levelOf(int tone) const;

    const Station* station_;
    std::uint64_t seed_;
    double start_;
};

}  // namespace hm16::simulated
