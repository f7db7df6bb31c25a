// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hm16::receiver {

// Data rate of RDS: the subcarrier divided by 48.
inline constexpr double kRdsBitsPerSecond = 1187.5;
inline constexpr double kRdsSubcarrierHz = 57000;

// The pulse reaches this many bits to each side.
inline constexpr double kRdsPulseReach = 3;

// The biphase pulse of a 1 at `bits` (time in bits) from the middle of the bit: two impulses after
// the data shaping filter cos(pi f t / 4), cut to the reach above. A matched filter uses the same
// one.
double rdsPulse(double bits);

}  // namespace hm16::receiver
