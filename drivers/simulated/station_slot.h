// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/hm16_more.h"
#include "drivers/simulated/station.h"
#include "drivers/unit/readings.h"

namespace hm16::simulated {

// A slot of a station, null for none, from its readings in both audio modes: the values, and why
// those are unknown that are. Number and times are left to the caller.
HM16_Slot slotOf(const Station* station, const Readings& leftRight, const Readings& sumDifference);

}  // namespace hm16::simulated
