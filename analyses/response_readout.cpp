// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_readout.h"

#include "analyses/response_charts.h"
#include "analyses/response_file.h"
#include "program/report_fault.h"
#include "program/tuner.h"

namespace hmonitor {

void readResponse(Program& program) {
    // The pairs and the file belong to the station that was tuned when the read-out began.
    const ResponseFile file(program.tuner->TunedFreq);
    program.driver.HM_Data();
    program.driver.HM_Parar();
    ResponsePairs pairs;
    program.driver.HM_RespFrecuencia(pairs);
    program.driver.HM_Parar();
    if (ResponseCurve::resultsIn(pairs) == 0) {
        // Nothing was measured: file, switch and charts stay, but the unit must be tuned back.
        program.tuner->retune();
        return;
    }
    showResponse(program, ResponseCurve::of(pairs), program.desktop.today());
    warn(program.desktop, file.write(program.files, pairs));
    program.tuner->disarmResponse();
    program.tuner->retune();
}

}  // namespace hmonitor
