// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"

namespace hmonitor {

using display::Colour;
using display::Line;

namespace {

constexpr Colour kLit{0xffff00};
constexpr Colour kLitHigh{0x2317fd};
constexpr Colour kBarDark{0x404040};
constexpr Colour kMemoryDark{0x1d1c20};
constexpr Colour kPowerLit{0x2317fd};
constexpr Colour kPowerDark{0x1d1c20};
constexpr Colour kPhaseDark{0x000000};

Colour litColour(int element) {
    return element <= LevelBar::kRed ? kLit : kLitHigh;
}

}  // namespace

/// The controls that show the level of one channel.
struct Form_B::Channel {
    LevelWindow& window;
    LevelBar& bar;
    display::Family<Line, 62>& elements;
    display::Label& figure;
};

void Form_B::heartbeat() {
    const Readings readings = driver.HM_Data();
    if (inDemoMode()) {
        // Without a unit the panel is updated at half the rate.
        DemoTick = DemoTick == 1 ? 0 : 1;
        if (DemoTick == 0) return;
    }
    takeLevel({WindowMaxL, BarL, LineAudL, PromL}, readings.levelFirst);
    takeLevel({WindowMaxR, BarR, LineAudR, PromR}, readings.levelSecond);
    WindowTicks = WindowTicks == 5 ? Int16(0) : Int16(WindowTicks + 1);
    handOffModulation(readings.peakModulation);
    showPhase(readings.stereoPhase);
    RefrescoFase();
    program.Form1->DrawMultyPath();
}

void Form_B::takeLevel(const Channel& channel, float level) {
    const int reading = inDemoMode()
                            ? demoFigure(desktop().random(), 24, channel.window.windowMax, 40)
                            : floorWhole(level + kLevelScale);
    if (WindowTicks == 5) {
        const int figure = channel.window.close();
        channel.figure.caption = wholeText(figure);
        channel.figure.colour = figure > 0 ? display::kRed : display::kBlack;
    } else {
        channel.window.take(reading);
    }
    LevelBar& bar = channel.bar;
    if (bar.take(reading)) {
        channel.elements[static_cast<std::size_t>(bar.peak)].colour = kLitHigh;
    }
    for (int i = 0; i < LevelBar::kElements; ++i) {
        Line& element = channel.elements[static_cast<std::size_t>(i)];
        if (i <= bar.bar) {
            element.colour = litColour(i);
        } else if (i != bar.peak) {
            element.colour = kBarDark;
        }
    }
}

void Form_B::dropPeakMarks() {
    // The element that the mark left goes dark on the next tick.
    if (BarL.fall()) LineAudL[static_cast<std::size_t>(BarL.peak)].colour = kLitHigh;
    if (BarR.fall()) LineAudR[static_cast<std::size_t>(BarR.peak)].colour = kLitHigh;
}

void Form_B::handOffModulation(float peak) {
    int percent = inDemoMode() ? demoFigure(desktop().random(), 60, StationState.ModBar, 50)
                               : wholeTowardZero(peak);
    percent = std::min(percent, 160);
    StationState.DemoPeak = static_cast<float>(percent);
    if (StationState.ModBar < StationState.DemoPeak) {
        program.Form1->Timer1.enabled = true;
        StationState.ModBar = StationState.DemoPeak;
    }
    program.Form1->ActualizarModulacion();
}

void Form_B::drawNeedle(Line& needle, float phase) {
    const DialPoint tip = needleTip(kPhaseCentre, kPhaseLength, phaseDegrees(phase), Pi);
    needle.to(tip.x, tip.y);
}

void Form_B::showPhase(float phase) {
    PhaseNow = inDemoMode() ? demoPhase(desktop().random(), PhaseNow) : phase;
    PhaseRaw = PhaseNow;
    Label_PhaseVector.caption = mask("00.00", PhaseRaw);
    PhaseNow = std::clamp(PhaseNow, 0.f, 90.f);
    drawNeedle(Line1, PhaseNow);
    if (!trail.due()) return;
    Line* const lines[] = {&Line2, &Line3, &Line4, &Line5, &Line6};
    for (std::size_t i = 0; i < trail.trail.size(); ++i) drawNeedle(*lines[i], trail.trail[i]);
    trail.shift(PhaseNow);
}

void Form_B::RefrescoFase() {
    const int value = phaseHold.take(floorWhole(PhaseRaw));
    const SmallText text = wholeText(value);
    // A missing character, or one that is no digit, counts as 0.
    auto character = [&text](std::size_t i) { return i < text.size() ? digitOf(text[i]) : 0; };
    Colour hundreds = kPhaseDark;
    if (value < 10) {
        phaseUnits.show(character(0), SegmentOnColour, kPhaseDark);
        phaseTens.blank(kPhaseDark);
    } else if (value < 100) {
        phaseUnits.show(character(1), SegmentOnColour, kPhaseDark);
        phaseTens.show(character(0), SegmentOnColour, kPhaseDark);
    } else {
        phaseTens.show(character(1), SegmentOnColour, kPhaseDark);
        phaseUnits.show(character(2), SegmentOnColour, kPhaseDark);
        hundreds = SegmentOnColour;
    }
    Line120.colour = hundreds;
    Line121.colour = hundreds;
}

void Form_B::DibujoPotencia(double powerHold) {
    const DialPoint tip = needleTip(kPowerPivot, kPowerLength, 90 - powerHold, Pi);
    LinePo.to(tip.x, tip.y);
}

void Form_B::RefrescoPotencia(Int16 figure) {
    power.take(figure);
    PowerDigit = power.PowerShown / 10;
    PowerPlace = 1;
    Command_DibujoLCD_Potencia();
    PowerDigit = power.PowerShown % 10;
    PowerPlace = 2;
    Command_DibujoLCD_Potencia();
}

void Form_B::Command_DibujoLCD_Potencia() {
    if (PowerPlace == 1) powerTens.show(PowerDigit, kPowerLit, kPowerDark);
    if (PowerPlace == 2) powerUnits.show(PowerDigit, kPowerLit, kPowerDark);
}

void Form_B::Command4(int digit) {
    memoryUnits.show(digit, SegmentOnColour, kMemoryDark);
}

void Form_B::Command5() {
    const SmallText number = wholeText(MemoryNumber);
    Label_MemoryNumber.caption = number;
    Colour tens = kMemoryDark;
    if (MemoryState == "cero") {
        memoryUnits.blank(kMemoryDark);
    } else if (number.size() >= 2) {
        Command4(digitOf(number[1]));
        // The tens place has the two strokes of a 1.
        if (number[0] == '1') tens = SegmentOnColour;
    } else {
        Command4(digitOf(number[0]));
    }
    Line46.colour = tens;
    Line45.colour = tens;
}

}  // namespace hmonitor
