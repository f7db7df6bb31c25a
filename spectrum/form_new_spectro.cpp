// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_new_spectro.h"

#include "core/numbers.h"
#include "program/language.h"
#include "program/make_form.h"
#include "program/point_run.h"
#include "program/rack_place.h"
#include "program/report_fault.h"
#include "spectrum/channel_graph.h"
#include "spectrum/form_d1.h"
#include "spectrum/span_choice.h"
#include "spectrum/span_dialog.h"

namespace hmonitor {

namespace {

/// Draws and prints the points of a channel spectrum as they are measured.
class ChannelLevels final : public LevelSink {
 public:
    ChannelLevels(const ChannelSweep& sweep, float carrier, Form_D1& shown, Class1& graph,
                  ChannelSpectrum& spectrum)
        : sweep_(sweep), carrier_(carrier), shown_(shown), graph_(graph), spectrum_(spectrum) {}

    int first() const override { return 1; }
    int last() const override { return spectrum_.points; }
    float frequency(int index) const override { return sweep_.frequency(index); }
    void take(int index, float level) override {
        // The carrier is the reference for the other points: it is not measured again.
        Int16 below = sweep_.isCentre(index) ? Int16(0) : dbAgainstCarrier(level, carrier_);
        graph_.GraphLine(index, below);
        const SmallText value = shortText(int{below});
        shown_.printValue(index, value);
        spectrum_.values.push_back(value);
    }
    void refused(int index) override { shown_.tellRefused(frequency(index)); }

 private:
    const ChannelSweep& sweep_;
    float carrier_;
    Form_D1& shown_;
    Class1& graph_;
    ChannelSpectrum& spectrum_;
};

}  // namespace

Form_NewSpectro::Form_NewSpectro(Program& itsProgram) : ProgramForm(itsProgram, "Form_NewSpectro") {
    Combo1.onClick = [this] { takeSpan(); };
    Command3D1.onClick = [this] { run(); };
    Text_Step.onChange = [this] { Refused.caption = ""; };
    Command3D2.onClick = [this] {
        program.Form_D1->show();
        unload();
    };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form_NewSpectro::onLoad() {
    tellIdleInDemo(Command3D1);
    language = panelLanguage(program.desktop.userLanguageId());
    placeOverRack(*this, program);
    for (const SpanChoice& choice : kSpanChoices) Combo1.list.add(choice.item);
    Combo1.select(0);
}

void Form_NewSpectro::takeSpan() {
    const SpanChoice& choice = kSpanChoices[static_cast<std::size_t>(Combo1.list.selected())];
    SpanKHz = choice.halfSpan;
    Text_Step.text = choice.step;
}

void Form_NewSpectro::run() {
    if (inDemoMode()) return;
    UnitLease& lease = program.Form_D1.peek().lease;
    if (!lease.take()) return;
    const float carrier = driver.HM_Data().field;
    driver.HM_Parar();
    driver.HM_getHardwareVersion(program.words.gHardwareVersion);
    lease.tuneFor(AudioMode::LeftRight);

    // A step under 1 kHz is refused: the graph and its labels use whole kHz.
    const double step = valueOf(Text_Step.text);
    if (step < 1) {
        Refused.caption = wordsIn(language, kLeastStep);
        Text_Step.takeFocus();
        Text_Step.selectAll();
        lease.letGo();
        return;
    }
    measure({lease.frequency(), valueOf(SpanKHz), step}, carrier);
    unload();
}

void Form_NewSpectro::measure(const ChannelSweep& sweep, float carrier) {
    Form_D1& shown = *program.Form_D1;
    ChannelSpectrum spectrum{sweep.points(), shortText(sweep.step), sweep.beforeFirstMhz(), {}};
    const Int16 stepKhz = spectrum.stepKhz();
    Class1 graph = channelGraph(shown.Picture1.drawing, spectrum.points, stepKhz);
    shown.EscalaClean(spectrum.points, stepKhz);
    graph.GraphInit();

    driver.HM_Parar();
    // At the start the rack has no position yet, and no user asked for the run.
    const bool asked = program.desktop.queue().gateOpen();
    if (asked) shown.show();
    hide();
    shown.beginRun();
    ChannelLevels levels(sweep, carrier, shown, graph, spectrum);
    PointRun points(program, shown.lease, {&shown.Command3D2});
    // If the unit fails, the run ends and the stored spectrum is kept.
    if (points.measure(levels, carrier) == PointRun::End::Done) {
        warn(program.desktop, spectrum.write(program.files, sweep.carrier));
        shown.lease.giveBack(UnitLease::Back::AsStored);
        shown.endRun(Form_D1::RunEnd::Whole);
    } else {
        shown.endRun(Form_D1::RunEnd::Broken);
    }
    // Without a carrier each point would be as strong as it: a wall of 0 dB.
    if (!asked && carrier != 0) shown.awaitRack();
}

template MadeForm makeForm(Program&, Slot<Form_NewSpectro>&);

}  // namespace hmonitor
