// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/modulation/form1.h"

#include <cmath>

#include "analyses/form_d.h"
#include "core/numbers.h"
#include "core/panel_settings.h"
#include "core/station_defaults.h"
#include "panels/audio/form_b.h"
#include "panels/quality/form_c.h"
#include "program/make_form.h"
#include "program/report_fault.h"
#include "spectrum/open_spectrum.h"
#include "startup/form3.h"
#include "startup/form_card.h"
#include "startup/form_modo_demo.h"

namespace hmonitor {

Form1::Form1(Program& itsProgram) : ProgramForm(itsProgram, "Form1") {
    Timer1.onTick = [this] { tickPeak(); };
    Timer4.onTick = [this] { tickReadouts(); };
    Timer5.onTick = [this] { refreshDefaults(); };
    bindKeys();
    bindReadings();
}

void Form1::onLoad() {
    offerDemoMode();
    desktop().helpFile = "hm-16.hlp";

    PowerHold = 115;
    Pi = 4 * std::atan(1.0);
    Image_Average.picture = "msN";
    Image6.picture = "PeakN";
    Image7.picture = "MinN";
    Image_Power.picture = "PowerN";
    Image9.picture = "MinN";

    RackPhase = kStarting;
    StationState.Band = "FM";
    StationState.ModBar = 0;
    StationState.DbCorrection10 = "0";
    StationState.ResponseState = "0";
    StationState.ModSettle = "5";
    RetuneOnMode = 1;

    const auto defaults = require(desktop(), StationDefaults::read(program.files));
    program.Form_D->Text2.text = defaults.Text2;
    program.Form_D->Text1.text = defaults.Text1;
    program.Form_D->Text3.text = defaults.Text3;
    program.Form_D->Text4.text = defaults.Text4;

    program.limits.read(program.files);
    readPresetAndCorrection();
    if (StationState.FirstSelect.empty()) driver.HM_setSintoMode(0);
    StationState.FirstSelect = "1";

    const bool marvenia = program.words.gBrand == "Marvenia";
    Label1.visible = !marvenia;
    Brand.visible = marvenia;
    held = {};
    Label_Bad_CarrierDev.visible = false;
}

void Form1::offerDemoMode() {
    float version = 0;
    driver.HM_getHardwareVersion(version);
    StationState.HardwareVersion = shortText(version);
    if (valueOf(StationState.HardwareVersion) != 0) {
        program.words.gHardwareVersion = version;
        return;
    }
    program.FormModoDemo->showModal();
    if (program.FormModoDemo->answer() == FormModoDemo::kDemo) {
        StationState.DemoMode = "si";
        program.FormModoDemo->unload();
        driver.HM_DemoMode();
        return;
    }
    driver.HM_Terminate();
    desktop().end();
}

void Form1::readPresetAndCorrection() {
    const auto settings =
        require(desktop(), PanelSettings::read(program.files, PanelLine::DbCorrection));
    StationState.MemoryNumber = settings.line(PanelLine::MemoryPreset);
    if (valueOf(StationState.MemoryNumber) > 16) StationState.MemoryNumber = "1";
    takeCorrection(settings.value(PanelLine::DbCorrection));
}

void Form1::takeCorrection(double correction) {
    StationState.DbCorrection10 = shortText(correction * 10);
}

void Form1::refreshDefaults() {
    // A file that is just being edited may be missing or torn: the fields keep their texts.
    const auto defaults = StationDefaults::read(program.files);
    if (!defaults) return;
    program.Form_D->Text2.text = defaults->Text2;
    program.Form_D->Text1.text = defaults->Text1;
    program.Form_D->Text3.text = defaults->Text3;
    program.Form_D->Text4.text = defaults->Text4;
}

void Form1::resized() {
    if (RackPhase == kFolding) {
        RackPhase = kFolded;
        return;
    }
    if (RackPhase == kStarting) {
        program.Form3->left = left.get();
        program.Form3->top = top + height;
        program.Form3->show();
    }
    stackRack();
    const bool starting = RackPhase == kStarting;
    if (starting) program.Form_B->InicioForm();
    program.Form_B->show();
    if (!starting) return;
    showChannelSpectrumOfStart(program);
    if (program.FirstStart.showsCard) showCard();
}

/// Over the analyses panel, where it hides no figure.
void Form1::showCard() {
    hmonitor::FormCard& card = *program.FormCard;
    card.left = left + (width - card.width) / 2;
    card.top = program.Form_D->top + (program.Form_D->height - card.height) / 2;
    card.show();
}

void Form1::stackRack() {
    program.Form_B->top = top + height;
    program.Form_C->top = program.Form_B->top + program.Form_B->height;
    program.Form_C->show();
    program.Form_D->top = program.Form_C->top + program.Form_C->height;
    program.Form_D->show();
}

void Form1::Command9() {
    RackPhase = kFolding;
    program.Form_B->hide();
    program.Form_C->hide();
    program.Form_D->hide();
    minimise();
}

void Form1::tickPeak() {
    if (DecayTick == 4) {
        DecayTick = 0;
        StationState.ModBar -= 1;
    } else {
        ++DecayTick;
    }
    showRelativePower();
}

void Form1::showRelativePower() {
    const Readings readings = driver.HM_Data();
    const float power = readings.relativePower * 10;
    const double candidate = 115 - wholeTowardZero(power);
    if (PowerHold > candidate) PowerHold = candidate;
    program.Form_B->DibujoPotencia(PowerHold);
    PowerHold += 0.75;
    StationState.PowerText = shortText(power);
    program.Form_B->RefrescoPotencia(Int16(toWhole(power)));
}

void Form1::takeSettings() {
    const auto settings =
        require(desktop(), PanelSettings::read(program.files, PanelLine::AudioMode));
    StationState.MemoryNumber = settings.line(PanelLine::MemoryPreset);
    if (valueOf(StationState.MemoryNumber) > 16) StationState.MemoryNumber = "1";
    takeCorrection(settings.value(PanelLine::DbCorrection));
    const bool average = settings.value(PanelLine::Detector) == 1;
    Image_Average.picture = average ? "msA" : "msN";
    Image6.picture = average ? "PeakN" : "PeakA";
    const bool sum = settings.value(PanelLine::AudioMode) == 1;
    program.Form_B->Image2.picture = sum ? "LRA" : "LRN";
    program.Form_B->Image1.picture = sum ? "LyRN" : "LyRA";
    FirstTick = "1";
}

void Form1::tickReadouts() {
    if (FirstTick != "1") takeSettings();
    if (StationState.ResponseState == "sisi") {
        // The tone sequence of a frequency response run has ended.
        if (figures::showsEndMark(driver.HM_Data())) respolee();
    }
    RefrescoIntensidadDeCampo();
    ActualizarModulacion_Displays();
    // Nothing reads the text, but the random number must be drawn at this tick.
    desktop().random();
    carrier1();
    program.Form_C->Command4();
    program.Form_C->Command6();
    program.Form_C->Command11();
    program.Form_C->Command13();
    program.Form_C->Command1();
    showSigns();
}

template MadeForm makeForm(Program&, Slot<Form1>&);

}  // namespace hmonitor
