// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/hm16_more.h"
#include "drivers/receiver/figures/station_slot.h"

namespace hm16::receiver {

// Converts a slot of the chain to the library's format; the caller sets number and times.
// `levelStepDb`: steps of the field.
HM16_Slot slotOf(const StationSlot& slot, double levelStepDb);

}  // namespace hm16::receiver
