// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdlib>
#include <string>

#include "analyses/form_d.h"
#include "base/utf8_path.h"
#include "core/files.h"
#include "core/numbers.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"
#include "program/language.h"

namespace hmonitor {

namespace {

/// The colours of the word "GOOD", lit and dark.
constexpr display::Colour kGoodLit{0x37ff4b};
constexpr display::Colour kGoodDark{0x1b6013};

}  // namespace

void Form1::bindReadings() {
    BarWell.reading = [this] { return mask("0.0", bar.ModBarValue).str(); };
    MultipathWell.reading = [this] { return wholeText(multipathLit()).str(); };
    // The word is always shown; its colour tells whether it is on.
    multygood.reading = [this] {
        const bool lit = multygood.colour == kGoodLit;
        return std::string(wordsIn(language, lit ? display::Words{"encendido", "lit"}
                                                 : display::Words{"apagado", "dark"}));
    };
}

int Form1::multipathLit() const {
    int lit = 0;
    for (std::size_t i = 0; i < multypath.size(); ++i) lit += multypath[i].picture == "multyon";
    return lit;
}

void Form1::ActualizarModulacion() {
    if (valueOf(StationState.ModSettle) == 0) {
        // At the first tick after a tuning the bar jumps and the held peak starts again.
        showBar(bar.jumpTo(StationState.DemoPeak));
        StationState.ModBar = 0;
        StationState.ModSettle = "5";
        return;
    }
    showBar(bar.follow(StationState.DemoPeak));
}

void Form1::showBar(float percent) {
    const float at = 48 * percent;
    BarFill.width = std::max(at, 0.f);
    Label10.left = at - 40;
    Picture1.left = at + 200;
    Picture2.left = at + 180;
    Line1.x1 = at + 230;
    Line1.x2 = at + 230;
}

float Form1::correctedField(float field) const {
    return static_cast<float>(valueOf(StationState.DbCorrection10)) / 10 + field;
}

void Form1::ActualizarModulacion_Displays() {
    const Readings readings = driver.HM_Data();
    const float live = inDemoMode() ? StationState.DemoPeak : readings.peakModulation;
    if (held.take(live)) {
        Label_FMod_Porcentaje.caption = mask("0.0", held.PeakHoldValue);
        Label_FMod.caption = mask("0.0", held.PeakHoldKHz);
    }
    Label_PicosPorMinuto.caption = shortText(readings.peaksPerMinute);
    // Without a unit the field shows the simulated value.
    Label_FieldIntensity.caption =
        mask("0.0", inDemoMode() ? 69.5f : correctedField(readings.field));
    showCarrierDeviation(readings.carrierDeviation);
}

void Form1::showCarrierDeviation(float sample) {
    const float hertz = carrier.take(sample);
    const bool out = CarrierDeviation::outOfLimit(hertz);
    if (out && Label_CarrierDeviation.colour == display::kCyan) {
        Label_CarrierDeviation.colour = display::kRed;
        Label_Bad_CarrierDev.visible = true;
    }
    if (!out && Label_CarrierDeviation.colour == display::kRed) {
        Label_CarrierDeviation.colour = display::kCyan;
        Label_Bad_CarrierDev.visible = false;
    }
    Label_CarrierDeviation.caption = mask("0.0", hertz / 1000);
}

void Form1::showSigns() {
    const int seconds = inDemoMode() ? 0 : driver.staleSeconds();
    SmallText text = inDemoMode() ? "DEMO" : "";
    if (seconds > 0) {
        text = wordsIn(language, {"SIN DATOS ", "NO DATA "});
        text.append(wholeText(seconds)).append(" s");
    }
    const auto figures = seconds > 0 ? PanelSign::Figures::Stale : PanelSign::Figures::Live;
    for (PanelSign* panel :
         {&sign, &program.Form_B->sign, &program.Form_C->sign, &program.Form_D->sign}) {
        panel->show(text, figures);
    }
    for (LimitMarks* panel : {&limits, &program.Form_B->limits, &program.Form_C->limits}) {
        panel->show(program.limits);
    }
    showTrouble();
}

std::string Form1::troubleText() const {
    const FileTroubles& troubles = program.files.troubles();
    if (!troubles.any()) return noticeText();
    const std::string name = base::utf8Of(troubles.file().filename());
    const bool spanish = language == display::Language::Spanish;
    if (troubles.why() == FileTroubles::Why::Unreadable)
        return spanish ? "No se puede leer " + name : name + " cannot be read";
    std::string text;
    if (name.empty()) {
        text = wordsIn(language, {"No se puede guardar nada", "Nothing can be stored"});
    } else {
        text = spanish ? "No se puede guardar " + name : name + " cannot be stored";
    }
    switch (troubles.why()) {
        case FileTroubles::Why::ReadOnly:
            return text.append(wordsIn(language, {": es de solo lectura", ": it is read-only"}));
        case FileTroubles::Why::DiskFull:
            return text.append(wordsIn(language, {": el disco está lleno", ": the disk is full"}));
        case FileTroubles::Why::Other:
        case FileTroubles::Why::Unreadable:
            break;
    }
    return text;
}

/// What is to be said while everything can be stored.
std::string Form1::noticeText() const {
    const bool spanish = language == display::Language::Spanish;
    if (const auto& fault = program.limits.fault()) {
        return spanish ? fault->spanish : fault->english;
    }
    const HistoryNotice& notice = program.HistoryNotice;
    return spanish ? notice.spanish : notice.english;
}

void Form1::showTrouble() {
    using namespace std::chrono_literals;
    FileTroubles& troubles = program.files.troubles();
    const bool seen = troubleSeen.count() != 0;
    if (seen && desktop().now() - troubleSeen < 2s) {
        if (!troubles.any() || Trouble.visible) return;
    } else {
        if (seen) {
            troubles.lookAgain();
        } else {
            troubles.lookAt(program.files.folder());
        }
        troubleSeen = desktop().now();
    }
    const std::string text = troubleText();
    Trouble.visible = !text.empty();
    Trouble.caption = text;
}

void Form1::carrier1() {
    const Readings readings = driver.HM_Data();
    Label_OVER.visible = over.take(inDemoMode() ? 3.f : readings.carrierDeviation);
}

void Form1::RefrescoIntensidadDeCampo() {
    const Readings readings = driver.HM_Data();
    FieldTenths = inDemoMode() ? 695.f
                               : readings.field * 10 +
                                     static_cast<float>(valueOf(StationState.DbCorrection10));
    if (FieldTenths > 999) FieldTenths = 999;
    const int tenths = std::max(0, floorWhole(FieldTenths));
    FieldDigits = {tenths < 100 ? -1 : tenths / 100, tenths < 10 ? -1 : tenths / 10 % 10,
                   tenths % 10};
}

void Form1::DrawMultyPath() {
    const Readings readings = driver.HM_Data();
    if (inDemoMode()) return;
    const int sample = std::abs(floorWhole(readings.multipath));
    switch (meter.take(sample, correctedField(readings.field))) {
        case MultipathMeter::Draw::Nothing:
            return;
        case MultipathMeter::Draw::Bad:
            showMultipathBad();
            return;
        case MultipathMeter::Draw::Figure:
            showMultipathFigure(*meter.MultipathShown);
            return;
    }
}

void Form1::showMultipathBad() {
    multybad.visible = true;
    multygood.colour = kGoodDark;
    for (display::Picture& element : multypath) element.picture = "multyoff";
}

void Form1::showMultipathFigure(int figure) {
    multybad.visible = MultipathMeter::bad(figure);
    for (int i = 0; i < 5; ++i) {
        multypath[static_cast<std::size_t>(i)].picture =
            MultipathMeter::lit(i, figure) ? "multyon" : "multyoff";
    }
    multygood.colour = MultipathMeter::good(figure) ? kGoodLit : kGoodDark;
}

}  // namespace hmonitor
