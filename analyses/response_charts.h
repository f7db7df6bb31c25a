// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/response_curve.h"
#include "program/program.h"

namespace hmonitor {

/// Shows a curve on the response window and on the page that is printed of it.
void showResponse(Program& program, const ResponseCurve& curve);

}  // namespace hmonitor
