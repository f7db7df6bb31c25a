// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <chrono>
#include <cstdint>

#include "display/timer.h"
#include "program/driver.h"

namespace hmonitor {

/// Detects that the unit has stopped sending new readings: all sixteen outputs and both of RDS have
/// been equal to the bit for three seconds although there is a carrier.
class StillReadings {
 public:
    static constexpr display::Time kStale = std::chrono::seconds(3);

    /// The unit measures a station from now on; earlier readings do not count.
    void begin(display::Time now) {
        measuring_ = true;
        changed_ = now;
    }
    /// The unit does something else now; its last readings may stay as they are.
    void end() { measuring_ = false; }

    void take(const Readings& readings, display::Time now) {
        for (const figures::Output output : figures::kOutputs) {
            note(last_.*output, readings.*output, now);
        }
    }

    /// Whole seconds since the last change once the readings are stale, 0 while they are not.
    int staleSeconds(display::Time now) const {
        const display::Time still = now - changed_;
        if (!measuring_ || still < kStale || !saysCarrier(last_)) return 0;
        return static_cast<int>(std::chrono::duration_cast<std::chrono::seconds>(still).count());
    }

    /// True if there is a field and something is received; on an empty channel readings may stay
    /// equal for ever.
    static bool saysCarrier(const Readings& readings) {
        if (!(readings.field > 0)) return false;
        constexpr figures::Output kHeard[] = {
            &Readings::peakModulation,   &Readings::relativePower,   &Readings::pilotError,
            &Readings::pilotLevel,       &Readings::noiseLeft,       &Readings::noiseRight,
            &Readings::separationLeft,   &Readings::separationRight, &Readings::distortion,
            &Readings::carrierDeviation, &Readings::multipath,       &Readings::peaksPerMinute};
        for (const figures::Output output : kHeard) {
            if (readings.*output != 0) return true;
        }
        return false;
    }

 private:
    void note(float& last, float now, display::Time at) {
        // Compared as bits: 0 and -0 are different readings.
        if (std::bit_cast<std::uint32_t>(last) == std::bit_cast<std::uint32_t>(now)) return;
        last = now;
        changed_ = at;
    }

    Readings last_;
    display::Time changed_{0};
    bool measuring_ = false;
};

}  // namespace hmonitor
