// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_spectrum_analizer_span.h"

#include <string>
#include <string_view>

#include "analyzer/analyzer_graphs.h"
#include "analyzer/frm_spectrum_analizer.h"
#include "analyzer/session_names.h"
#include "core/numbers.h"
#include "core/text_lines.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/point_run.h"
#include "program/report_fault.h"
#include "program/tuner.h"
#include "spectrum/class1.h"
#include "spectrum/span_dialog.h"

namespace hmonitor {

namespace {

/// The centre frequency of the run, in units of 100 kHz.
constexpr double kCentre = 980;

}  // namespace

frmSpectrumAnalizerSpan::frmSpectrumAnalizerSpan(Program& itsProgram)
    : ProgramForm(itsProgram, "frmSpectrumAnalizerSpan") {
    Combo1.onClick = [this] { takeStep(); };
    Command3D1.onClick = [this] { run(); };
    Command3D2.onClick = [this] {
        program.frmSpectrumAnalizer->show();
        unload();
    };
}

void frmSpectrumAnalizerSpan::onLoad() {
    language = panelLanguage(desktop().userLanguageId());
    Combo1.list.add("  Step Size 25KHz");
    Combo1.select(0);
    bandwidth_ = 10000;
}

void frmSpectrumAnalizerSpan::takeStep() {
    constexpr std::size_t kStepFrom = 12;
    const std::string_view step = Combo1.list.text().substr(kStepFrom, 2);
    Text2.text = step == "10" ? "100" : step;
}

void frmSpectrumAnalizerSpan::run() {
    if (inDemoMode()) {
        program.frmSpectrumAnalizer->show();
        unload();
        return;
    }
    // A step under 1 kHz is refused: the graph uses whole kHz. A box tells it, and before anything
    // is done: the unit must not stand halted behind a box, and the dialog closes as after a run.
    const double step = valueOf(Text2.text);
    if (step < 1) tellLeastStep();
    driver.HM_Parar();
    driver.HM_getHardwareVersion(program.words.gHardwareVersion);
    if (step >= 1) measure(step);
    program.tuner->retune();
    if (program.frmSpectrumAnalizer->measurement.ScanRunning == -1)
        program.frmSpectrumAnalizer->ToggleScan();
    unload();
}

void frmSpectrumAnalizerSpan::tellLeastStep() {
    desktop().messageBox(
        {caption.get(), std::string(wordsIn(language, kLeastStep)), display::BoxIcon::Information});
}

void frmSpectrumAnalizerSpan::measure(double step) {
    frmSpectrumAnalizer& its = *program.frmSpectrumAnalizer;
    const int count = toWhole(bandwidth_ / step);
    const double first = kCentre - bandwidth_ / 200 - step / 100;
    const std::string levels = measurePoints(step, count, first);
    const std::string& session = its.measurement.CurrentSessionFile;
    if (levels.empty() || session.empty()) return;
    const std::string head =
        joinLines({wholeText(count).str(), Text2.text.get(), shortText(first / 10).str()});
    warn(desktop(), its.folder.write(sweepFileName(session), head + levels + "\r\n"));
}

/// Draws the points of the run in the analyzer's picture and counts them in its session.
class frmSpectrumAnalizerSpan::Points final : public LevelSink {
 public:
    Points(frmSpectrumAnalizer& analyzer, Class1& graph, float correction)
        : analyzer_(analyzer), graph_(graph), correction_(correction) {}

    int first() const override { return 1; }
    int last() const override { return count; }
    float frequency(int index) const override {
        return static_cast<float>((before / 10 + index * step / 1000) * 10);
    }
    void take(int index, float raw) override {
        const int level = scanLevel(raw, correction_);
        Int16 fromTop = 100 - level;
        graph_.GraphLine(index, fromTop);
        analyzer_.measurement.CountLevel(index - 1, level);
        levels += shortText(level).str() + "\r\n";
        if (analyzer_.measurement.ScanRunning != 0) return;
        left = true;
        run->stop();
    }
    void refused(int) override { left = true; }

    int count = 0;
    double before = 0;  ///< of the point before the first, 100 kHz units
    double step = 0;    ///< kHz
    PointRun* run = nullptr;
    bool left = false;  ///< the run was broken off
    std::string levels;

 private:
    frmSpectrumAnalizer& analyzer_;
    Class1& graph_;
    float correction_;
};

/// The lines of the levels; none if the run was broken off.
std::string frmSpectrumAnalizerSpan::measurePoints(double step, int count, double first) {
    frmSpectrumAnalizer& its = *program.frmSpectrumAnalizer;
    Class1 graph = sweepGraph(its.PictureZoom.drawing, count, toWhole(step), skipLabelsFor(count));
    graph.BottomMargin = 490;
    graph.GraphInit();
    driver.HM_Parar();
    its.show();
    PointRun run(program, lease_, {&its.butPause, &its.butPause_BW});
    Points points(its, graph, static_cast<float>(valueOf(StationState.DbCorrection10) / 10));
    points.count = count;
    points.before = first;
    points.step = step;
    points.run = &run;
    measuring_ = true;
    run.measure(points);
    measuring_ = false;
    return points.left ? std::string() : points.levels;
}

void frmSpectrumAnalizerSpan::layOut() {
    layWindow(4800, 2400, "Spectrum", Faceplate);
    laySpanDialog(*this, Text2, 240);
    Combo1.says = {"Paso de la corrida", "Step of the run"};
    Command3D1.says = {"Medir", "Measure"};
    Command3D2.says = {"Volver al analizador", "Back to the analyzer"};
}

template MadeForm makeForm(Program&, Slot<frmSpectrumAnalizerSpan>&);

}  // namespace hmonitor
