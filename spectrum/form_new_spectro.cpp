// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_new_spectro.h"

#include "core/language.h"
#include "core/numbers.h"
#include "core/run_guard.h"
#include "core/taken_for_granted.h"
#include "panels/audio/form_b.h"
#include "spectrum/channel_graph.h"
#include "spectrum/form_d1.h"
#include "spectrum/form_d1a.h"
#include "spectrum/rack_place.h"
#include "spectrum/span_choice.h"

namespace hmonitor {

Form_NewSpectro::Form_NewSpectro(Program& itsProgram) : ProgramForm(itsProgram, "Form_NewSpectro") {
    Combo1.onClick = [this] { takeSpan(); };
    Command3D1.onClick = [this] { run(); };
    Command3D2.onClick = [this] {
        program.Form_D1->show();
        unload();
    };
    bindHandle(SSPanel1.onMouseDown, SSPanel1.onMouseMove, {this});
}

void Form_NewSpectro::onLoad() {
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
    // The unit can do one thing at a time.
    if (program.FormD1a.filled() && program.FormD1a.peek().running()) return;

    RunGuard guard(program, {&program.Form_D1.peek().Command3D2}, {&program.Form_D1.peek()});
    const float carrier = driver.HM_Data().output(14);
    driver.HM_Parar();
    driver.HM_getHardwareVersion(program.words.gHardwareVersion);
    program.Form_B->GuardoModo_LR();
    program.Form_B->cambfre();

    // A step under 1 kHz is none: the graph and its labels count in whole kHz.
    const double step = valueOf(Text_Step.text);
    if (step < 1) return;
    const ChannelSweep sweep{program.Form_B->TunedFreq, valueOf(SpanKHz), step};
    measure(sweep, carrier);
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
    // At the start the rack has no place yet, and nobody asked for the run.
    const bool asked = program.desktop.queue().gateOpen();
    if (asked) shown.show();
    hide();
    shown.beginRun();
    if (measurePoints(sweep, carrier, graph, spectrum)) {
        tellFault(program.desktop, spectrum.write(program.files, sweep.carrier));
        program.Form_B->cambfre();
        shown.endRun(Form_D1::Unit::Returned);
    } else {
        shown.endRun(Form_D1::Unit::Idle);
    }
    // Without a carrier each point would be as strong as it: a wall of 0 dB.
    if (!asked && carrier != 0) shown.awaitRack();
}

bool Form_NewSpectro::measurePoints(const ChannelSweep& sweep, float carrier, Class1& graph,
                                    ChannelSpectrum& spectrum) {
    float level = carrier;
    for (int i = 1; i <= spectrum.points; ++i) {
        // A unit that fails ends the run, and the spectrum that was stored stays.
        if (driver.HM_Super(sweep.frequency(i), level) != 0) {
            program.Form_D1->tellRefused(sweep.frequency(i));
            return false;
        }
        // The carrier is what the others are compared with: it is not measured again.
        Int16 below = sweep.isCentre(i) ? Int16(0) : dbAgainstCarrier(level, carrier);
        graph.GraphLine(i, below);
        const SmallText value = shortText(int{below});
        program.Form_D1->printValue(i, value);
        spectrum.values.push_back(value);
    }
    return true;
}

}  // namespace hmonitor
