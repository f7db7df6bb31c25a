// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_d1a.h"

#include <algorithm>

#include "core/language.h"
#include "core/numbers.h"
#include "core/refused_run.h"
#include "core/run_guard.h"
#include "panels/audio/form_b.h"
#include "spectrum/percent_of_db.h"
#include "spectrum/rack_place.h"

namespace hmonitor {

namespace {

using std::chrono::milliseconds;

constexpr const char* kRun = "Run";
constexpr const char* kStop = "Stop";
constexpr std::size_t kMeasured = 6;
/// 25 kHz in units of 100 kHz.
constexpr double kPitch = 0.25;

}  // namespace

FormD1a::FormD1a(Program& itsProgram) : ProgramForm(itsProgram, "FormD1a") {
    Command3D1.onClick = [this] { runOrStop(); };
    Command3D2.onClick = [this] {
        if (Command3D2.caption == "Working") return;
        program.Form_B->cambfre();
        program.enableRack();
        unload();
    };
    Command1.onClick = [this] { drawTestPattern(); };
    SSCommand1.onClick = [] {};  // the printed page has no window yet
    Timer1.onTick = [this] { tick(); };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void FormD1a::onLoad() {
    PeakPercent = {};
    Levels = {};
    SampleCount = 0;
    FrameBusy = 0;
    rampFrom_ = 0;
    language = panelLanguage(program.desktop.userLanguageId());
    placeOverRack(*this, program);
    takeGeometry();
    GraphClean();
    GraphRepaint();
    driver.HM_Parar();
    driver.HM_getHardwareVersion(HardwareVersion);
}

void FormD1a::closeRequested() {
    if (Command3D2.enabled) Command3D2.press();
}

bool FormD1a::givesFrames() const {
    return HardwareVersion >= 1.7f && HardwareVersion < 2.0f;
}

void FormD1a::runOrStop() {
    if (inDemoMode()) return;
    const float carrier = driver.HM_Data().output(14);
    driver.HM_Parar();
    if (Command3D1.caption == kRun) {
        if (Command3D2.enabled) start(carrier);
    } else if (Command3D1.caption == kStop) {
        stop();
    }
}

void FormD1a::start(float carrier) {
    program.disableRack();
    Refused.caption = "";
    SampleCount = 0;
    Command3D1.caption = kStop;
    Command3D2.enabled = false;
    std::fill_n(PeakPercent.begin() + 1, kMeasured, 0.f);
    Levels[0] = 0;
    announceStart();
    program.Form_B->GuardoModo_LR();
    program.Form_B->cambfre();
    driver.HM_Parar();
    frequency_ = program.Form_B->TunedFreq;
    if (!takeReference(carrier)) return;
    startSampling();
}

/// Answers false when the run ended meanwhile.
bool FormD1a::takeReference(float carrier) {
    Levels[0] = carrier;
    if (!givesFrames()) return true;
    RunGuard guard(program, {&Command3D1}, {this});
    float measured = 0;
    const bool failed = driver.HM_Super(static_cast<float>(frequency_), measured) != 0;
    // While the level was measured the user may have pressed Stop.
    if (Command3D1.caption != kStop) return false;
    if (failed) {
        Refused.caption = refusedRun(language, static_cast<float>(frequency_));
        stop();
        return false;
    }
    Levels[0] = measured > carrier - 1.0f ? measured : carrier - 10.0f;
    return true;
}

void FormD1a::startSampling() {
    if (givesFrames()) {
        driver.HM_StartEspectro(static_cast<float>(frequency_ + kPitch),
                                static_cast<float>(frequency_ + kMeasured * kPitch), 0);
        Timer1.interval = milliseconds(50);
    } else {
        Timer1.interval = milliseconds(200);
    }
    Timer1.enabled = true;
}

void FormD1a::stop() {
    Command3D1.caption = kRun;
    Timer1.enabled = false;
    Picture1.drawing.foreground = display::kBlack;
    printAt(2700, 20, SmallText("Stop Time: ").append(timeOfDay()));
    // A tick in work still measures: it gives the unit back at its end.
    if (FrameBusy == 0) giveUnitBack();
}

void FormD1a::giveUnitBack() {
    program.Form_B->cambfre();
    Command3D2.enabled = true;
}

void FormD1a::tick() {
    if (FrameBusy == -1) return;
    if (driver.HM_TramaEspectroRecibida() == 0 && givesFrames()) return;
    ++SampleCount;
    FrameBusy = -1;
    GraficoMuestras(SampleCount);
    const Taken taken = takeLevels();
    const bool grown = taken == Taken::All && holdPeaks();
    if (taken == Taken::UnitFailed && Timer1.enabled) stop();
    FrameBusy = 0;
    if (!Timer1.enabled) giveUnitBack();
    if (grown) drawCurve();
}

FormD1a::Taken FormD1a::takeLevels() {
    RunGuard guard(program, {&Command3D1}, {this});
    for (std::size_t i = 1; i <= kMeasured; ++i) {
        const auto f = static_cast<float>(frequency_ + static_cast<double>(i) * kPitch);
        if (givesFrames()) {
            driver.HM_GetEspectro(f, Levels[i]);
        } else if (driver.HM_Super(f, Levels[i]) != 0) {
            Refused.caption = refusedRun(language, f);
            return Taken::UnitFailed;
        }
    }
    return Taken::All;
}

bool FormD1a::holdPeaks() {
    bool grown = false;
    for (std::size_t i = 1; i <= kMeasured; ++i) {
        const float percent = percentOfDb(std::max(Levels[0] - Levels[i], 0.f));
        if (percent > PeakPercent[i]) {
            PeakPercent[i] = percent;
            grown = true;
        }
    }
    return grown;
}

}  // namespace hmonitor
