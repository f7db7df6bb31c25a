// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <cstdint>
#include <numbers>

#include "core/numbers.h"
#include "panels/audio/form_b.h"
#include "program/figure_tips.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;
using namespace std::chrono_literals;

namespace {

constexpr Colour kDarkBar{0x404040};

/// Twips for one unit of each dial.
constexpr float kBarsUnit = 1.4f;
constexpr float kBarsLeft = 330;
constexpr float kPhaseUnit = 1.4f;
constexpr float kPowerUnit = 0.44f;

DialPoint onDial(DialPoint centre, double radius, double degrees) {
    return needleTip(centre, radius, degrees, std::numbers::pi);
}

/// Lays out a tick of a dial, from one radius to another.
void placeTick(Line& tick, Panel& dial, DialPoint centre, double from, double to, double degrees,
               bool big) {
    const DialPoint in = onDial(centre, from, degrees);
    const DialPoint out = onDial(centre, to, degrees);
    place(tick, in.x, in.y, out.x, out.y, &dial, LineStyle{look::kScaleColour, big ? 1.2f : 0.7f});
}

/// Lays out a needle of a dial at rest.
void placeNeedle(Line& needle, Panel& dial, DialPoint centre, double length, double degrees,
                 Colour colour, float thickness) {
    const DialPoint tip = onDial(centre, length, degrees);
    place(needle, centre.x, centre.y, tip.x, tip.y, &dial,
          LineStyle{colour, thickness, Stroke::Round});
}

}  // namespace

void Form_B::layOut() {
    layPanel(2360, Faceplate, Heading, 100, {"AUDIO / STEREO", "AUDIO / STEREO"});
    layOutLevels();
    layOutPower();
    layOutPhase();
    layOutTuning();
    limits.layOut();
    placeSign(sign, 90,
              {&LevelWell, &PowerWell, &PowerDigits, &PhaseWell, &PhaseDigits, &PhaseReadout});
    program.figureTips.tell(*this);
    Timer2.interval = 30ms;
    Timer3.interval = 300ms;
}

void Form_B::layOutLevels() {
    constexpr TextStyle kLetter{look::kLamp, look::kScaleColour};
    // Right-aligned pieces: a figure that gets longer must not move the others.
    constexpr TextStyle kFigure{{180, Weight::Bold}, kBlack, Align::Right, Surface::Plate};
    place(Label_AudioLevel, {look::kMargin, 120, 4000, 150}, look::kCaptionText,
          Words{"Nivel de audio", "Audio level"});
    place(LevelWell, {look::kMargin, 290, 5160, 860}, Surface::Well);
    place(LetterL, {110, 130, 180, 200}, &LevelWell, kLetter, "L");
    place(LetterR, {110, 555, 180, 200}, &LevelWell, kLetter, "R");
    place(LevelBars, {kBarsLeft, 0, 4060, 860}, &LevelWell).unit = kBarsUnit;
    for (int i = 0; i < LevelBar::kElements; ++i) {
        // Until the first tuning each bar has one element.
        for (auto* family : {&LineAudL, &LineAudR}) {
            const float upper = family == &LineAudL ? 75.f : 380.f;
            place((*family)[i], 5, upper, 5, upper + 165, &LevelBars, LineStyle{kDarkBar, 2.2f})
                .visible = i == 0;
        }
    }
    for (int i = 0; i < 7; ++i) {
        // Two elements for each dB, -25 dB at element 0.
        const float x = kBarsLeft + kBarsUnit * (5 + 45 * static_cast<float>(10 * i));
        place(LevelNumber[i], {x - 175, 357, 350, 154}, &LevelWell, look::kScaleText.centred(),
              wholeText(5 * i - 25));
    }
    place(PromL, {4480, 110, 560, 230}, &LevelWell, kFigure,
          Readout{"Nivel izquierdo, dB", "Left level, dB"});
    place(PromR, {4480, 535, 560, 230}, &LevelWell, kFigure,
          Readout{"Nivel derecho, dB", "Right level, dB"});
}

void Form_B::layOutPower() {
    place(Label_AudioProcessingRelativePower, {look::kMargin, 1210, 4800, 150}, look::kCaptionText,
          Words{"Potencia relativa del procesador de audio", "Audio processing relative power"});
    place(PowerWell, {look::kMargin, 1380, 2400, 860}, Surface::Well);
    // The pivot lies below the window; up to a figure of 100 the needle's tip is inside it.
    place(PowerDial, {354, -12, 1700, 1030}, &PowerWell).unit = kPowerUnit;
    for (int i = 0; i <= 20; ++i) {
        const bool big = i % 2 == 0;
        placeTick(PowerTick[i], PowerDial, kPowerPivot, 1890, big ? 1990 : 1950, 5 * i - 25, big);
    }
    for (int i = 0; i < 6; ++i) {
        // Outside the needle's range, so that it covers none.
        const DialPoint at = onDial(kPowerPivot, 2110, 20 * i - 25);
        place(PowerNumber[i], {at.x - 250, at.y - 140, 500, 280}, &PowerDial,
              look::kScaleText.centred(), wholeText(20 * i));
    }
    placeNeedle(LinePo, PowerDial, kPowerPivot, kPowerLength, -25, kRed, 3);

    place(PowerDigits, {2880, 1380, 2640, 860}, Surface::Well,
          Says{"Potencia relativa", "Relative power"});
    placeDigit(powerTens, {830, 160, 430, 540}, &PowerDigits, look::kUnlit);
    placeDigit(powerUnits, {1400, 160, 430, 540}, &PowerDigits, look::kUnlit);
}

void Form_B::layOutPhase() {
    place(Label_StereoPhaseVector, {5720, 120, 3000, 150}, look::kCaptionText,
          Words{"Vector de fase estereo", "Stereo phase vector"});
    place(PhaseWell, {5720, 290, 2880, 1470}, Surface::Well);
    place(PhaseDial, {1440 - kPhaseCentre.x * kPhaseUnit, -150, 3700, 1700}, &PhaseWell).unit =
        kPhaseUnit;
    for (int i = 0; i <= 36; ++i) {
        const bool big = i % 6 == 0;
        placeTick(PhaseTick[i], PhaseDial, kPhaseCentre, big ? 860 : 890, 930, 90 - 5.0 * i, big);
    }
    for (int i = 0; i < 7; ++i) {
        const DialPoint at = onDial(kPhaseCentre, 740, 90 - 30.0 * i);
        place(PhaseNumber[i], {at.x - 80, at.y - 50, 160, 110}, &PhaseDial,
              look::kScaleText.centred(), wholeText(15 * i));
    }
    const auto needle = [this](Line& line, std::uint32_t colour, float thickness) {
        placeNeedle(line, PhaseDial, kPhaseCentre, kPhaseLength, 0, Colour{colour}, thickness);
    };
    needle(Line1, 0x0000ff, 3);
    needle(Line2, 0x0000c0, 2);
    needle(Line3, 0x02069d, 2);
    needle(Line4, 0x01047c, 2);
    needle(Line5, 0x010356, 2);
    needle(Line6, 0x000040, 2);

    place(PhaseDigits, {5720, 1830, 1380, 410}, Surface::Well,
          Says{"Fase estéreo retenida, grados", "Held stereo phase, degrees"});
    place(Line120, 290, 60, 275, 205, &PhaseDigits, segmentStyle(290, kBlack));
    place(Line121, 275, 205, 260, 350, &PhaseDigits, segmentStyle(290, kBlack));
    placeDigit(phaseTens, {440, 60, 230, 290}, &PhaseDigits, kBlack);
    placeDigit(phaseUnits, {800, 60, 230, 290}, &PhaseDigits, kBlack);
    place(PhaseReadout, {7220, 1830, 1380, 410}, Surface::Well);
    place(Label_PhaseVector, {60, 80, 1200, 260}, &PhaseReadout, look::kSmallReadoutText.right(),
          Readout{"Fase estéreo, grados", "Stereo phase, degrees"});
}

void Form_B::layOutTuning() {
    constexpr float kLeft = 8800;
    constexpr float kWidth = 2840;
    constexpr TextStyle kFrequency{{500, Weight::Bold}, {0x2f2fff}, Align::Right};
    constexpr TextStyle kName{{170, Weight::Bold}, kCyan};
    place(FrequencyWell, {kLeft, 290, kWidth, 860}, Surface::Well);
    place(Label_FrecRadio, {60, 60, kWidth - 180, 520}, &FrequencyWell, kFrequency,
          Readout{"Frecuencia, MHz", "Frequency, MHz"},
          Tip{"Frecuencia sintonizada en MHz, de 87.50 a 108.05",
              "Tuned frequency in MHz, 87.50 to 108.05"});
    place(Label_RadioName, {130, 600, 2000, 220}, &FrequencyWell, kName,
          Readout{"Estación", "Station"},
          Tip{"Nombre de la memoria sintonizada; vacío fuera de memoria",
              "Name of the tuned memory; empty off memory"});
    place(FrequencyUnit, {2150, 640, 570, 160}, &FrequencyWell, look::kUnitText.right(), "MHz");

    place(MemoryWell, {kLeft, 1220, 760, 410}, Surface::Well,
          Says{"Memoria sintonizada", "Tuned memory"},
          Tip{"Número de la memoria sintonizada, de 1 a 16; oscuro fuera de memoria.\n"
              "Teclas 1 a 9 y 0: memorias 1 a 10; con Mayúsculas 1 a 6: 11 a 16",
              "Number of the tuned memory, 1 to 16; dark off memory.\n"
              "Keys 1 to 9 and 0: memories 1 to 10; with Shift 1 to 6: 11 to 16"});
    place(Line46, 230, 60, 215, 205, &MemoryWell, segmentStyle(290, look::kUnlit));
    place(Line45, 215, 205, 200, 350, &MemoryWell, segmentStyle(290, look::kUnlit));
    placeDigit(memoryUnits, {310, 60, 230, 290}, &MemoryWell, look::kUnlit);
    place(Label_MemoryNumber, {570, 240, 150, 130}, &MemoryWell, look::kUnitText.right(),
          Readout{"Memoria", "Memory"},
          Tip{"La última memoria elegida, de 1 a 16", "The memory that was chosen last, 1 to 16"});

    place(SSCommand2, {kLeft + 820, 1220, 600, 410}, "◀",
          SaysAndTip{"Memoria anterior", "Previous memory"});
    place(SSCommand1, {kLeft + 1480, 1220, 600, 410}, "▶",
          SaysAndTip{"Memoria siguiente", "Next memory"});
    place(Image3, {kLeft + 2140, 1220, 700, 190}, Caption{"SET"},
          SaysAndTip{"Editar memorias y opciones", "Edit memories and options"});
    place(Image4, {kLeft + 2140, 1440, 700, 190}, Caption{"TUNER"},
          SaysAndTip{"Teclado de sintonía", "Tuner keypad"});
    place(Image1, {kLeft, 1700, 1390, 270}, Caption{"L | R"},
          SaysAndTip{"Modo de audio L y R", "Audio mode L and R"});
    place(Image2, {kLeft + 1450, 1700, 1390, 270}, Caption{"L+R | L-R"},
          SaysAndTip{"Modo de audio L+R y L-R", "Audio mode L+R and L-R"});
    place(HScroll1, {kLeft, 2040, kWidth, 200}, SaysAndTip{"Sintonía", "Tuning"}).range(0, 206, 10);
    tabOrder(SSCommand2, SSCommand1, Image3, Image4, Image1, Image2, HScroll1);
}

}  // namespace hmonitor
