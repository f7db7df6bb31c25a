// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

#include "drivers/unit/local_time.h"

namespace hm16::receiver {

// The signal's time: it advances with the samples that are read, at whatever speed. So logs and
// results of a recording that is measured fast are those of its real duration.
class SignalClock {
 public:
    explicit SignalClock(double rateHz) : rateHz_(rateHz), start_(Wall::now()) {}

    void add(std::size_t samples) { samples_ += samples; }
    double seconds() const { return static_cast<double>(samples_) / rateHz_; }

    // The local time at the signal's current position.
    LocalTime now() const {
        return localTimeAt(start_ + std::chrono::duration_cast<Wall::duration>(
                                        std::chrono::duration<double>(seconds())));
    }

    // The time, in nanoseconds since 1970 UTC, at which the signal was so many seconds old.
    std::int64_t utcNsAt(double seconds) const {
        using std::chrono::nanoseconds;
        return std::chrono::duration_cast<nanoseconds>(start_.time_since_epoch()).count() +
               static_cast<std::int64_t>(seconds * 1e9);
    }

 private:
    using Wall = std::chrono::system_clock;

    double rateHz_;
    Wall::time_point start_;
    std::uint64_t samples_ = 0;
};

}  // namespace hm16::receiver
