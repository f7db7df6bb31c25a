// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "drivers/unit/readings.h"
#include "drivers/unit/unit.h"

namespace hm16::simulated {

// The readings of a unit with this tuning at a time in seconds: a pure function of its arguments.
// `levelStep` is the step of the field in dB, 0 for none.
Readings figuresAt(std::uint64_t seed, const Tuning& tuning, double time, double levelStep);

// `level` rounded to a multiple of `step`; not rounded for 0.
double stepped(double level, double step);

}  // namespace hm16::simulated
