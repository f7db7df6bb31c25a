// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "drivers/hm16_absence.h"

namespace hmonitor {

/// Why no unit answers, as the driver library says it (drivers/hm16_absence.h).
struct UnitAbsence {
    enum class Cause { NotTold, NoRadio, NoSoapy, BadRadio, BadSetting, BadRecording };

    Cause cause = Cause::NotTold;
    std::string what;   ///< the radio or file as the settings name it
    std::string words;  ///< one English sentence that says more, or nothing
};

/// Takes over what a library says, which may be any bytes: an unknown cause is none, and each text
/// becomes one line, without what the offer of the demo mode has no room for.
UnitAbsence unitAbsence(const HM16_AbsenceInfo& said);

}  // namespace hmonitor
