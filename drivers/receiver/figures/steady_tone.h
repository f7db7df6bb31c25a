// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace hm16::receiver {

// What a power spectrum says about its strongest line.
struct SteadyTone {
    double hz = 0;
    double meanSquare = 0;         // of the line
    double harmonics = 0;          // mean square of its harmonics up to 15 kHz, the floor taken out
    double rest = 0;               // mean square of all else from 20 Hz to 15 kHz
    bool harmonicsInBand = false;  // at least one harmonic lies below 15 kHz

    // By how much the line stands over the rest, in dB.
    double dominanceDb() const;
};

// `power`: bins of a real stretch, `binHz` apart; lines spread `lobeBins` to each side.
SteadyTone findTone(std::span<const double> power, double binHz, std::size_t lobeBins);

}  // namespace hm16::receiver
