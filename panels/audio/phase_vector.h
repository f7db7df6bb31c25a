// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cmath>

namespace hmonitor {

/// A point of a dial in panel units, y downward.
struct DialPoint {
    float x = 0;
    float y = 0;
};

/// The tip of a needle of that length; degrees count clockwise from straight up.
inline DialPoint needleTip(DialPoint pivot, double length, double degrees, double pi) {
    const double angle = 2 * pi * degrees / 360;
    return {static_cast<float>(pivot.x + length * std::sin(angle)),
            static_cast<float>(pivot.y - length * std::cos(angle))};
}

/// The angle of the phase needle: 90 degrees for phase 0, 0 (straight up) for 45, -90 for 90.
inline double phaseDegrees(float phase) {
    return 90 - 2 * static_cast<double>(phase);
}

inline constexpr DialPoint kPhaseCentre{1320, 1080};
inline constexpr double kPhaseLength = 840;
inline constexpr DialPoint kPowerPivot{1350, 2315};
inline constexpr double kPowerLength = 1865;

/// The last phases, newest first. The trail is drawn at every third reading and shifted afterwards,
/// so its first line is one step behind the needle.
struct PhaseTrail {
    std::array<float, 5> trail{};
    int ticks = 0;

    /// Counts a reading; returns true when the trail is to be drawn, before shift() is called.
    bool due() {
        if (++ticks < 3) return false;
        ticks = 0;
        return true;
    }
    void shift(float now) {
        for (std::size_t i = trail.size() - 1; i > 0; --i) trail[i] = trail[i - 1];
        trail[0] = now;
    }
};

}  // namespace hmonitor
