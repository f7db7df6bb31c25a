// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <numbers>

#include "core/figure_tips.h"
#include "core/language.h"
#include "core/look.h"
#include "core/numbers.h"
#include "panels/audio/form_b.h"

namespace hmonitor {

using namespace std::chrono_literals;
using display::Align;
using display::Colour;
using display::Label;
using display::Line;
using display::Panel;
using display::Surface;

namespace {

constexpr float kHeight = 2360;
constexpr Colour kDarkBar{0x404040};
constexpr Colour kNeedle{0x0000ff};

/// Twips for one unit of each dial.
constexpr float kBarsUnit = 1.4f;
constexpr float kBarsLeft = 330;
constexpr float kPhaseUnit = 1.4f;
constexpr float kPowerUnit = 0.44f;

DialPoint onDial(DialPoint centre, double radius, double degrees) {
    return needleTip(centre, radius, degrees, std::numbers::pi);
}

void caption(Label& label, const display::Words& words) {
    label.caption = wordsIn(label.form().language, words);
    label.font = look::kCaption;
    label.colour = look::kCaptionColour;
}

}  // namespace

void Form_B::layOut() {
    width = look::kRackWidth;
    height = kHeight;
    caption = "HMonitor";
    language = panelLanguage(desktop().userLanguageId());
    place(Faceplate, {0, 0, look::kRackWidth, kHeight}).surface = Surface::Faceplate;
    place(Heading, {8640, 100, 3000, 160}).caption = "AUDIO / STEREO";
    Heading.font = look::kHeading;
    Heading.colour = look::kCaptionColour;
    Heading.align = Align::Right;
    layOutLevels();
    layOutPower();
    layOutPhase();
    layOutTuning();
    placeSign(sign, 90,
              {&LevelWell, &PowerWell, &PowerDigits, &PhaseWell, &PhaseDigits, &PhaseReadout});
    tellFigures(*this);
    Timer2.interval = 30ms;
    Timer3.interval = 300ms;
}

void Form_B::layOutLevels() {
    hmonitor::caption(place(Label_AudioLevel, {look::kMargin, 120, 4000, 150}),
                      {"Nivel de audio", "Audio level"});
    place(LevelWell, {look::kMargin, 290, 5160, 860}).surface = Surface::Well;
    place(LetterL, {110, 130, 180, 200}, &LevelWell).caption = "L";
    place(LetterR, {110, 555, 180, 200}, &LevelWell).caption = "R";
    const auto likeLetter = [](Label& letter) {
        letter.font = look::kLamp;
        letter.colour = look::kScaleColour;
    };
    likeLetter(LetterL);
    likeLetter(LetterR);
    place(LevelBars, {kBarsLeft, 0, 4060, 860}, &LevelWell).unit = kBarsUnit;
    for (int i = 0; i < LevelBar::kElements; ++i) {
        for (auto* family : {&LineAudL, &LineAudR}) {
            // Until the first tuning there is one element a bar.
            const float upper = family == &LineAudL ? 75.f : 380.f;
            Line& element = (*family)[static_cast<std::size_t>(i)];
            place(element, 5, upper, 5, upper + 165, &LevelBars);
            element.thickness = 2.2f;
            element.colour = kDarkBar;
            element.visible = i == 0;
        }
    }
    for (int i = 0; i < 7; ++i) {
        // Two elements a dB, -25 dB at element 0.
        Label& number = LevelNumber[static_cast<std::size_t>(i)];
        const float x = kBarsLeft + kBarsUnit * (5 + 45 * static_cast<float>(10 * i));
        place(number, {x - 175, 357, 350, 154}, &LevelWell).caption = wholeText(5 * i - 25);
        number.font = look::kScale;
        number.colour = look::kScaleColour;
        number.align = Align::Centre;
    }
    place(PromL, {4480, 110, 560, 230}, &LevelWell);
    place(PromR, {4480, 535, 560, 230}, &LevelWell);
    const auto likeFigure = [](Label& figure) {
        figure.surface = Surface::Plate;
        figure.font = display::Font{180, display::Weight::Bold};
        figure.align = Align::Right;  // a figure that gets longer must not move the others
        figure.colour = display::kBlack;
        figure.readout = true;
    };
    likeFigure(PromL);
    likeFigure(PromR);
    PromL.says = {"Nivel izquierdo, dB", "Left level, dB"};
    PromR.says = {"Nivel derecho, dB", "Right level, dB"};
}

void Form_B::layOutPower() {
    hmonitor::caption(
        place(Label_AudioProcessingRelativePower, {look::kMargin, 1210, 4800, 150}),
        {"Potencia relativa del procesador de audio", "Audio processing relative power"});
    place(PowerWell, {look::kMargin, 1380, 2400, 860}).surface = Surface::Well;
    // The pivot lies below the window, and the needle's tip in it up to a figure of 100.
    place(PowerDial, {354, -12, 1700, 1030}, &PowerWell).unit = kPowerUnit;
    for (int i = 0; i <= 20; ++i) {
        const int figure = 5 * i;
        const bool big = figure % 10 == 0;
        const DialPoint in = onDial(kPowerPivot, 1890, figure - 25);
        const DialPoint out = onDial(kPowerPivot, big ? 1990 : 1950, figure - 25);
        Line& tick = PowerTick[static_cast<std::size_t>(i)];
        place(tick, in.x, in.y, out.x, out.y, &PowerDial);
        tick.colour = look::kScaleColour;
        tick.thickness = big ? 1.2f : 0.7f;
    }
    for (int i = 0; i < 6; ++i) {
        // Outside the needle's reach, so that it covers none.
        const DialPoint at = onDial(kPowerPivot, 2110, 20 * i - 25);
        Label& number = PowerNumber[static_cast<std::size_t>(i)];
        place(number, {at.x - 250, at.y - 140, 500, 280}, &PowerDial).caption = wholeText(20 * i);
        number.font = look::kScale;
        number.colour = look::kScaleColour;
        number.align = Align::Centre;
    }
    const DialPoint rest = onDial(kPowerPivot, kPowerLength, -25);
    place(LinePo, kPowerPivot.x, kPowerPivot.y, rest.x, rest.y, &PowerDial);
    LinePo.colour = kNeedle;
    LinePo.thickness = 3;
    LinePo.stroke = display::Stroke::Round;

    place(PowerDigits, {2880, 1380, 2640, 860}).surface = Surface::Well;
    PowerDigits.says = {"Potencia relativa", "Relative power"};
    placeDigit(powerTens, {830, 160, 430, 540}, &PowerDigits, look::kUnlit);
    placeDigit(powerUnits, {1400, 160, 430, 540}, &PowerDigits, look::kUnlit);
}

void Form_B::layOutPhase() {
    hmonitor::caption(place(Label_StereoPhaseVector, {5720, 120, 3000, 150}),
                      {"Vector de fase estereo", "Stereo phase vector"});
    place(PhaseWell, {5720, 290, 2880, 1470}).surface = Surface::Well;
    place(PhaseDial, {1440 - kPhaseCentre.x * kPhaseUnit, -150, 3700, 1700}, &PhaseWell).unit =
        kPhaseUnit;
    for (int i = 0; i <= 36; ++i) {
        const double phase = 2.5 * i;
        const bool big = i % 6 == 0;
        const DialPoint in = onDial(kPhaseCentre, big ? 860 : 890, 90 - 2 * phase);
        const DialPoint out = onDial(kPhaseCentre, 930, 90 - 2 * phase);
        Line& tick = PhaseTick[static_cast<std::size_t>(i)];
        place(tick, in.x, in.y, out.x, out.y, &PhaseDial);
        tick.colour = look::kScaleColour;
        tick.thickness = big ? 1.2f : 0.7f;
    }
    for (int i = 0; i < 7; ++i) {
        const int phase = 15 * i;
        const DialPoint at = onDial(kPhaseCentre, 740, 90 - 2.0 * phase);
        Label& number = PhaseNumber[static_cast<std::size_t>(i)];
        place(number, {at.x - 80, at.y - 50, 160, 110}, &PhaseDial).caption = wholeText(phase);
        number.font = look::kScale;
        number.colour = look::kScaleColour;
        number.align = Align::Centre;
    }
    struct Trail {
        Line& line;
        std::uint32_t colour;
        float thickness;
    };
    for (const Trail& row :
         {Trail{Line1, 0x0000ff, 3}, Trail{Line2, 0x0000c0, 2}, Trail{Line3, 0x02069d, 2},
          Trail{Line4, 0x01047c, 2}, Trail{Line5, 0x010356, 2}, Trail{Line6, 0x000040, 2}}) {
        const DialPoint up = onDial(kPhaseCentre, kPhaseLength, 0);
        place(row.line, kPhaseCentre.x, kPhaseCentre.y, up.x, up.y, &PhaseDial);
        row.line.colour = Colour{row.colour};
        row.line.thickness = row.thickness;
        row.line.stroke = display::Stroke::Round;
    }

    place(PhaseDigits, {5720, 1830, 1380, 410}).surface = Surface::Well;
    PhaseDigits.says = {"Fase estéreo retenida, grados", "Held stereo phase, degrees"};
    place(Line120, 290, 60, 275, 205, &PhaseDigits);
    place(Line121, 275, 205, 260, 350, &PhaseDigits);
    for (Line* stroke : {&Line120, &Line121}) {
        stroke->stroke = display::Stroke::Segment;
        stroke->thickness = 290.f / 7 / 15;
        stroke->colour = display::kBlack;
    }
    placeDigit(phaseTens, {440, 60, 230, 290}, &PhaseDigits, display::kBlack);
    placeDigit(phaseUnits, {800, 60, 230, 290}, &PhaseDigits, display::kBlack);
    place(PhaseReadout, {7220, 1830, 1380, 410}).surface = Surface::Well;
    place(Label_PhaseVector, {60, 80, 1200, 260}, &PhaseReadout).align = Align::Right;
    Label_PhaseVector.font = look::kSmallReadout;
    Label_PhaseVector.colour = display::kCyan;
    Label_PhaseVector.readout = true;
    Label_PhaseVector.says = {"Fase estéreo, grados", "Stereo phase, degrees"};
}

void Form_B::layOutTuning() {
    constexpr float kLeft = 8800;
    constexpr float kWidth = 2840;
    place(FrequencyWell, {kLeft, 290, kWidth, 860}).surface = Surface::Well;
    place(Label_FrecRadio, {60, 60, kWidth - 180, 520}, &FrequencyWell).align = Align::Right;
    Label_FrecRadio.font = display::Font{500, display::Weight::Bold};
    Label_FrecRadio.colour = Colour{0x2f2fff};
    Label_FrecRadio.readout = true;
    Label_FrecRadio.says = {"Frecuencia, MHz", "Frequency, MHz"};
    place(Label_RadioName, {130, 600, 2000, 220}, &FrequencyWell);
    Label_RadioName.font = display::Font{170, display::Weight::Bold};
    Label_RadioName.colour = display::kCyan;
    Label_RadioName.readout = true;
    Label_RadioName.says = {"Estación", "Station"};
    Label_FrecRadio.tip = {"Frecuencia sintonizada en MHz, de 87.50 a 108.05",
                           "Tuned frequency in MHz, 87.50 to 108.05"};
    Label_RadioName.tip = {"Nombre de la memoria sintonizada; vacío fuera de memoria",
                           "Name of the tuned memory; empty off memory"};
    place(FrequencyUnit, {2150, 640, 570, 160}, &FrequencyWell).caption = "MHz";
    FrequencyUnit.align = Align::Right;
    FrequencyUnit.font = look::kUnit;
    FrequencyUnit.colour = look::kUnitColour;

    place(MemoryWell, {kLeft, 1220, 760, 410}).surface = Surface::Well;
    MemoryWell.says = {"Memoria sintonizada", "Tuned memory"};
    place(Line46, 230, 60, 215, 205, &MemoryWell);
    place(Line45, 215, 205, 200, 350, &MemoryWell);
    for (Line* stroke : {&Line46, &Line45}) {
        stroke->stroke = display::Stroke::Segment;
        stroke->thickness = 290.f / 7 / 15;
        stroke->colour = look::kUnlit;
    }
    placeDigit(memoryUnits, {310, 60, 230, 290}, &MemoryWell, look::kUnlit);
    place(Label_MemoryNumber, {570, 240, 150, 130}, &MemoryWell).font = look::kUnit;
    Label_MemoryNumber.colour = look::kUnitColour;
    Label_MemoryNumber.align = Align::Right;
    Label_MemoryNumber.readout = true;
    Label_MemoryNumber.says = {"Memoria", "Memory"};
    MemoryWell.tip = {"Número de la memoria sintonizada, de 1 a 16; oscuro fuera de memoria",
                      "Number of the tuned memory, 1 to 16; dark off memory"};
    Label_MemoryNumber.tip = {"La última memoria elegida, de 1 a 16",
                              "The memory that was chosen last, 1 to 16"};

    place(SSCommand2, {kLeft + 820, 1220, 600, 410}).caption = "◀";
    place(SSCommand1, {kLeft + 1480, 1220, 600, 410}).caption = "▶";
    place(Image3, {kLeft + 2140, 1220, 700, 190}).caption = "SET";
    place(Image4, {kLeft + 2140, 1440, 700, 190}).caption = "TUNER";
    place(Image1, {kLeft, 1700, 1390, 270}).caption = "L | R";
    place(Image2, {kLeft + 1450, 1700, 1390, 270}).caption = "L+R | L-R";
    place(HScroll1, {kLeft, 2040, kWidth, 200}).range(0, 206, 10);
    SSCommand2.says = {"Memoria anterior", "Previous memory"};
    SSCommand1.says = {"Memoria siguiente", "Next memory"};
    Image3.says = {"Editar memorias y opciones", "Edit memories and options"};
    Image4.says = {"Teclado de sintonía", "Tuner keypad"};
    Image1.says = {"Modo de audio L y R", "Audio mode L and R"};
    Image2.says = {"Modo de audio L+R y L-R", "Audio mode L+R and L-R"};
    HScroll1.says = {"Sintonía", "Tuning"};
    int order = 0;
    for (display::Control* control : std::initializer_list<display::Control*>{
             &SSCommand2, &SSCommand1, &Image3, &Image4, &Image1, &Image2, &HScroll1}) {
        control->tabIndex = ++order;
        control->tip = control->says;
    }
}

}  // namespace hmonitor
