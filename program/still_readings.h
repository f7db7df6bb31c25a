// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bit>
#include <cstdint>

#include "display/timer.h"
#include "program/driver.h"

namespace hmonitor {

/// Tells when a unit that measures has stopped saying anything new: all sixteen outputs and both of
/// RDS have stood still to the bit for three seconds while they said that there is a carrier.
class StillReadings {
 public:
    static constexpr display::Time kStale = std::chrono::seconds(3);

    /// The unit measures a station from now on; what stood before counts no more.
    void begin(display::Time now) {
        measuring_ = true;
        changed_ = now;
    }
    /// The unit does something else: what it says last may stand.
    void end() { measuring_ = false; }

    void take(const Readings& readings, display::Time now) {
        for (std::size_t i = 0; i < last_.outputs.size(); ++i) {
            note(last_.outputs[i], readings.outputs[i], now);
        }
    }
    void takeRds(float error, float level, display::Time now) {
        note(rdsError_, error, now);
        note(rdsLevel_, level, now);
    }

    /// Whole seconds since the last change once the readings are stale, 0 while they are not.
    int staleSeconds(display::Time now) const {
        const display::Time still = now - changed_;
        if (!measuring_ || still < kStale || !saysCarrier(last_)) return 0;
        return static_cast<int>(std::chrono::duration_cast<std::chrono::seconds>(still).count());
    }

    /// A field, and something that was heard on it: an empty channel may stand still for ever.
    static bool saysCarrier(const Readings& readings) {
        constexpr int kField = 14;
        constexpr int kHeard[] = {1, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16};
        if (!(readings.output(kField) > 0)) return false;
        for (const int output : kHeard) {
            if (readings.output(output) != 0) return true;
        }
        return false;
    }

 private:
    void note(float& last, float now, display::Time at) {
        // Not by comparison: 0 and -0 differ to the bit.
        if (std::bit_cast<std::uint32_t>(last) == std::bit_cast<std::uint32_t>(now)) return;
        last = now;
        changed_ = at;
    }

    Readings last_;
    float rdsError_ = 0;
    float rdsLevel_ = 0;
    display::Time changed_{0};
    bool measuring_ = false;
};

}  // namespace hmonitor
