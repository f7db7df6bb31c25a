// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_d1a.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include "core/numbers.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/rack_place.h"
#include "program/refused_run.h"
#include "program/station_line.h"
#include "program/tuner.h"
#include "program/unit_generation.h"
#include "spectrum/form_d1ap.h"
#include "spectrum/page_line.h"
#include "spectrum/percent_of_db.h"

namespace hmonitor {

namespace {

using std::chrono::milliseconds;

constexpr const char* kRun = "Run";
constexpr const char* kStop = "Stop";
constexpr std::size_t kMeasured = 6;
/// 25 kHz in units of 100 kHz.
constexpr double kPitch = 0.25;

/// The level of the carrier itself.
struct Reference final : LevelSink {
    explicit Reference(double carrier) : carrier_(static_cast<float>(carrier)) {}
    int first() const override { return 0; }
    int last() const override { return 0; }
    float frequency(int) const override { return carrier_; }
    void take(int, float measured) override { level = measured; }
    float level = 0;

 private:
    float carrier_;
};

}  // namespace

FormD1a::FormD1a(Program& itsProgram) : ProgramForm(itsProgram, "FormD1a") {
    Command3D1.onClick = [this] { runOrStop(); };
    Command3D2.onClick = [this] {
        if (run_ == Run::None) unload();
    };
    Command1.onClick = [this] { drawTestPattern(); };
    SSCommand1.onClick = [this] { openPage(); };
    Picture1.numbers = [this] { return numbersShown(); };
    Timer1.onTick = [this] { tick(); };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void FormD1a::onLoad() {
    tellIdleInDemo(Command3D1);
    PeakPercent = {};
    shown_.clear();
    Levels = {};
    SampleCount = 0;
    FrameBusy = 0;
    run_ = Run::None;
    closeAfterRun_ = false;
    rampFrom_ = 0;
    language = panelLanguage(program.desktop.userLanguageId());
    placeOverRack(*this, program);
    takeGeometry();
    GraphClean();
    GraphRepaint();
    Station.caption = stationHead(program, std::nullopt);
    lease_.take();
    driver.HM_Parar();
    driver.HM_getHardwareVersion(HardwareVersion);
}

void FormD1a::onUnload() {
    lease_.close(UnitLease::Back::AsStored);
}

void FormD1a::openPage() {
    hmonitor::FormD1aP& page = *program.FormD1aP;
    page.Label2.caption = spectrumPageLine(StationState, desktop());
    page.Picture1.drawing.take(Picture1.drawing);
    page.Picture1.numbers = [table = numbersShown()] { return table; };
    page.open();
}

void FormD1a::closeRequested() {
    // The key waits for a run to end; whoever closes the window ends it.
    closeAfterRun_ = true;
    if (run_ == Run::Going) stop();
    closeIfAsked();
}

/// The window goes when no measurement of it holds the thread any more.
void FormD1a::closeIfAsked() {
    if (closeAfterRun_ && run_ == Run::None && !points_.running()) unload();
}

void FormD1a::runOrStop() {
    if (inDemoMode()) return;
    const float carrier = driver.HM_Data().field;
    driver.HM_Parar();
    if (run_ == Run::Going) {
        stop();
    } else if (run_ == Run::None && !points_.running()) {
        start(carrier);
    }
}

void FormD1a::start(float carrier) {
    program.disableRack();
    Refused.caption = "";
    SampleCount = 0;
    run_ = Run::Going;
    Command3D1.caption = kStop;
    Command3D2.enabled = false;
    std::fill_n(PeakPercent.begin() + 1, kMeasured, 0.f);
    Levels[0] = 0;
    announceStart();
    Station.caption = stationHead(program, desktop().today());
    lease_.tuneFor(AudioMode::LeftRight);
    driver.HM_Parar();
    if (takeReference(carrier)) startSampling();
}

/// Returns false when the run ended meanwhile.
bool FormD1a::takeReference(float carrier) {
    Levels[0] = carrier;
    if (!givesFrames(HardwareVersion)) return true;
    Reference reference(lease_.frequency());
    const PointRun::End end = points_.measure(reference);
    // While the level was measured the user may have pressed Stop, or closed the window.
    if (run_ == Run::Going && end == PointRun::End::Done) {
        Levels[0] = reference.level > carrier - 1.0f ? reference.level : carrier - 10.0f;
        return true;
    }
    if (end == PointRun::End::UnitFailed) refused(0);
    if (run_ == Run::Going) stop();
    closeIfAsked();
    return false;
}

void FormD1a::startSampling() {
    if (givesFrames(HardwareVersion)) {
        Timer1.interval = milliseconds(50);
        frames_.start(frequency(1), frequency(kMeasured), 0);
    } else {
        Timer1.interval = milliseconds(200);
        Timer1.enabled = true;
    }
}

void FormD1a::stop() {
    run_ = Run::Stopped;
    Command3D1.caption = kRun;
    frames_.stop();
    Picture1.drawing.foreground = display::kBlack;
    printAt(2700, 20, SmallText("Stop Time: ").append(timeOfDay()));
    // A tick that is measuring returns the unit at its end.
    if (FrameBusy == 0) giveUnitBack();
}

void FormD1a::giveUnitBack() {
    run_ = Run::None;
    program.tuner->retune();
    Command3D2.enabled = true;
}

void FormD1a::tick() {
    if (givesFrames(HardwareVersion)) {
        frames_.look();
        return;
    }
    if (points_.running()) return;
    // A unit without sweeps is asked too, and measured whatever it answers.
    driver.HM_TramaEspectroRecibida();
    roundBegins();
    if (points_.measure(*this) == PointRun::End::Done) {
        roundEnds();
    } else {
        if (run_ == Run::Going) stop();
        endSample();
    }
    closeIfAsked();
}

int FormD1a::last() const {
    return static_cast<int>(kMeasured);
}

float FormD1a::frequency(int index) const {
    return static_cast<float>(lease_.frequency() + index * kPitch);
}

void FormD1a::roundBegins() {
    ++SampleCount;
    FrameBusy = -1;
    GraficoMuestras(SampleCount);
}

float FormD1a::before(int index, float) {
    return Levels[static_cast<std::size_t>(index)];
}

void FormD1a::take(int index, float level) {
    Levels[static_cast<std::size_t>(index)] = level;
}

void FormD1a::refused(int index) {
    Refused.caption = refusedRun(language, frequency(index));
}

void FormD1a::roundEnds() {
    const bool grown = holdPeaks();
    endSample();
    if (grown) drawCurve();
    closeIfAsked();
}

void FormD1a::endSample() {
    FrameBusy = 0;
    if (run_ == Run::Stopped) giveUnitBack();
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

template MadeForm makeForm(Program&, Slot<FormD1a>&);

}  // namespace hmonitor
