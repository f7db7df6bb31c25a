// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"
#include "analyses/response_charts.h"
#include "analyses/response_file.h"
#include "core/response_switch.h"
#include "core/taken_for_granted.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"

namespace hmonitor {

void Form1::respolee() {
    // The pairs and the file belong to the station that was tuned when the read-out began.
    const ResponseFile file(program.Form_B->TunedFreq);
    driver.HM_Data();
    driver.HM_Parar();
    ResponsePairs pairs;
    driver.HM_RespFrecuencia(pairs);
    driver.HM_Parar();
    if (ResponseCurve::resultsIn(pairs) == 0) {
        // Nothing was measured: file, switch and charts stay, but the unit stands still now.
        program.Form_B->cambfre();
        return;
    }
    showResponse(program, ResponseCurve::of(pairs));
    tellFault(desktop(), file.write(program.files, pairs));
    program.Form_D->Image5.picture = "OffN";
    StationState.ResponseState = "no";
    StationState.ResponseAuto = "";
    tellFault(desktop(), ResponseSwitch::off().write(program.files));
    program.Form_B->cambfre();
}

}  // namespace hmonitor
