// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/unit_clock.h"

namespace hm16::simulated {

UnitClock::UnitClock(const Options& options)
    : pace_(options.pace),
      opened_(std::chrono::steady_clock::now()),
      wallOpened_(options.clock ? momentOf(*options.clock) : std::chrono::system_clock::now()) {}

double UnitClock::seconds() const {
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - opened_;
    return passed.count() * pace_;
}

LocalTime UnitClock::wallAt(double seconds) const {
    const std::chrono::duration<double> passed(seconds);
    return localTimeAt(wallOpened_ +
                       std::chrono::duration_cast<std::chrono::system_clock::duration>(passed));
}

std::int64_t UnitClock::utcAt(double seconds) const {
    using std::chrono::nanoseconds;
    const auto opened = std::chrono::duration_cast<nanoseconds>(wallOpened_.time_since_epoch());
    return opened.count() + static_cast<std::int64_t>(seconds * 1e9);
}

std::chrono::nanoseconds UnitClock::real(double seconds) const {
    const std::chrono::duration<double> taken(seconds / pace_);
    return std::chrono::duration_cast<std::chrono::nanoseconds>(taken);
}

}  // namespace hm16::simulated
