// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace hm16::simulated {

// The level of an empty channel before fluctuations, dBuV.
inline constexpr float kNoiseFloor = 24;

// What the receiver's filter holds at a frequency (units of 100 kHz) at a time in seconds, in dB
// over a microvolt: all stations with their sidebands, which are as wide as their modulation is
// then, and the noise of the band. A pure function of its arguments.
double bandLevel(std::uint64_t seed, double frequency, double time);

// How far the sidebands are below the carrier, in dB, at a distance in kHz, with a peak deviation
// of `deviationKhz`.
double sidebandLoss(double distanceKhz, double deviationKhz);

}  // namespace hm16::simulated
