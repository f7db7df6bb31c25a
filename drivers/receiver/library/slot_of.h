// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/hm16_more.h"
#include "drivers/receiver/figures/station_slot.h"

namespace hm16::receiver {

// A slot of the chain as a library hands it out; number and times are left to the caller.
// `levelStepDb`: steps of the field.
HM16_Slot slotOf(const StationSlot& slot, double levelStepDb);

}  // namespace hm16::receiver
