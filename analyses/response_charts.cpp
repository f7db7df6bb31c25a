// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_charts.h"

#include "analyses/form7.h"
#include "analyses/form_dd3.h"

namespace hmonitor {

void showResponse(Program& program, const ResponseCurve& curve, std::optional<display::Date> run) {
    program.Form_Dd3->measuredAt(run);
    curve.show(program.Form_Dd3->Graph1);
    curve.show(program.Form7->Graph1);
}

}  // namespace hmonitor
