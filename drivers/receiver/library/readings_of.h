// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/receiver/figures/figures.h"
#include "drivers/unit/readings.h"
#include "drivers/unit/unit.h"

namespace hm16::receiver {

// Rounds a level to steps of `stepDb`; 0 leaves it unchanged.
double stepped(double level, double stepDb);

// Figures in the units of HM_Data. `peakHz` is the peak to report: of the last slot, or a mean,
// depending on the detector.
Readings readingsOf(const Figures& figures, double peakHz, AudioMode mode, double levelStepDb);

}  // namespace hm16::receiver
