// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "analyses/response_curve.h"
#include "program/program.h"

namespace hmonitor {

/// Shows a curve in the response window, with the time of its run, and on its page.
void showResponse(Program& program, const ResponseCurve& curve, std::optional<display::Date> run);

}  // namespace hmonitor
