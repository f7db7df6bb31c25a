// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "program/program.h"

namespace hmonitor {

/// Fetches a finished response measurement from the unit, stores and shows it, switches the
/// response off and tunes the unit back. Where nothing was measured it only tunes back.
void readResponse(Program& program);

}  // namespace hmonitor
