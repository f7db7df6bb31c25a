// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/receiver/library/receiver_options.h"
#include "drivers/receiver/synth/station_plan.h"

namespace hm16::receiver {

// The synthetic source's signals, whose true figures docs/receiver.md lists. A rate or a centre of
// 0 takes the scene's own: 1.2 million samples a second around 98.2 MHz.
BandPlan sceneOf(Scene scene, double rateHz, double centreHz);

}  // namespace hm16::receiver
