// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"

#include <optional>

#include "analyses/response_charts.h"
#include "analyses/response_file.h"
#include "analyses/response_readout.h"
#include "core/panel_settings.h"
#include "core/response_switch.h"
#include "program/report_fault.h"
#include "program/station_line.h"
#include "program/tuner.h"

namespace hmonitor {

void Form_D::respo() {
    const ResponseFile file(program.tuner->TunedFreq);
    const auto pairs = file.read(program.files);
    if (!pairs || ResponseCurve::resultsIn(*pairs) == 0) {
        resborra();
        return;
    }
    showResponse(program, ResponseCurve::of(*pairs), writtenAt(program, file.name()));
}

void Form_D::resborra() {
    showResponse(program, ResponseCurve::empty(), std::nullopt);
}

void Form_D::turnSwitch() {
    const Readings readings = driver.HM_Data();
    if (Image5.picture == "OffA") {
        switchOff();
    } else {
        arm(readings);
    }
    program.tuner->retune();
}

void Form_D::switchOff() {
    program.tuner->disarmResponse();
    // The results so far are stored all the same.
    readResponse(program);
}

void Form_D::arm(const Readings& atArming) {
    const auto settings =
        require(desktop(), PanelSettings::read(program.files, PanelLine::ScannerOffset));
    if (settings.line(PanelLine::AudioMode) != "0") {
        // The tones are measured left and right.
        program.tuner->storeMode(AudioMode::LeftRight);
        driver.HM_Parar();
        program.tuner->retune();
    }
    Image5.picture = "OffA";
    StationState.ResponseAuto = "si";
    StationState.ResponseState = "si";
    warn(desktop(),
         ResponseSwitch::armed(atArming.pilotError, atArming.pilotLevel).write(program.files));
}

}  // namespace hmonitor
