// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "drivers/hm16_absence.h"

namespace hm16 {

// Says why openUnit() gives no unit; the next HM_Init forgets it. Called by openUnit alone.
void tellAbsence(std::int32_t cause, std::string_view what, std::string_view words);
void forgetAbsence();

// The extension HM16_ABSENCE.
const HM16_AbsenceV1& absenceExtension();

}  // namespace hm16
