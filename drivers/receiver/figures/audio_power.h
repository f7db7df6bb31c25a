// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <span>

namespace hm16::receiver {

// Mean products of a stretch of left and right, in Hz squared.
struct AudioPower {
    double left = 0;
    double right = 0;
    double cross = 0;

    // Of (L + R) / 2 and (L - R) / 2.
    double sum() const { return (left + right + 2 * cross) / 4; }
    double difference() const { return (left + right - 2 * cross) / 4; }
};

// `left` and `right` are equally long.
AudioPower audioPower(std::span<const float> left, std::span<const float> right);

// The panels' level for silence: the lower end of their scale.
inline constexpr double kSilenceDb = -64;

// A mean square in Hz squared as a level; 0 dB is a sine of 67.5 kHz.
inline double levelDb(double meanSquare) {
    constexpr double kReference = 67.5e3 * 67.5e3 / 2;
    const double share = meanSquare / kReference;
    return share > 4e-7 ? 10 * std::log10(share) : kSilenceDb;
}

}  // namespace hm16::receiver
