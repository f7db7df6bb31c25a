// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/chance.h"

#include <cmath>

namespace hm16::simulated {

double Chance::even(std::int64_t number) const {
    const std::uint64_t bits = mix(key_ ^ mix(static_cast<std::uint64_t>(number)));
    return static_cast<double>(bits >> 11) * 0x1p-53;
}

double Chance::wander(double time, double period) const {
    const double place = time / period;
    const double whole = std::floor(place);
    // A driver's caller may ask for any number; what no whole number holds has one place for all.
    const auto number = std::fabs(whole) < 0x1p62 ? static_cast<std::int64_t>(whole) : 0;
    const double part = place - whole;
    const double ease = part * part * (3 - 2 * part);
    const double from = even(number);
    const double to = even(number + 1);
    return 2 * (from + (to - from) * ease) - 1;
}

}  // namespace hm16::simulated
