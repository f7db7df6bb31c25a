// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/quality/form_c.h"

#include <string>

#include "core/response_switch.h"
#include "panels/audio/form_b.h"
#include "program/look.h"
#include "program/make_form.h"
#include "program/report_fault.h"

namespace hmonitor {

namespace {

constexpr display::Colour kRedLit{0x2317fd};
constexpr display::Colour kDark = look::kUnlit;

// The figures that HM_Reset clears.
constexpr int kNoise = 1;
constexpr int kDistortion = 2;
constexpr int kSeparation = 3;

template <std::size_t Places>
void drawAt(std::array<SegmentDigit, Places>& places, int place, int digit, display::Colour lit) {
    if (place < 1 || place > static_cast<int>(Places)) return;
    places[static_cast<std::size_t>(place - 1)].show(digit, lit, kDark);
}

/// Three digits with a point before the last.
std::string tenthsOf(const std::array<SegmentDigit, 3>& places) {
    const std::string wholes = figuresOf({&places[0], &places[1]});
    return (wholes.empty() ? "0" : wholes) + "." + figuresOf({&places[2]});
}

}  // namespace

Form_C::Form_C(Program& itsProgram) : ProgramForm(itsProgram, "Form_C") {
    bindKey(Image_Reset1, "ResN", "ResA", [this] { reset(kNoise); });
    bindKey(Image2, "ResN", "ResA", [this] { reset(kDistortion); });
    bindKey(Image3, "ResN", "ResA", [this] { reset(kSeparation); });
    bindReadings();
    bindSound();
}

void Form_C::bindReadings() {
    Error19Digits.reading = [this] {
        const char* const before = Line148.colour == kDark ? "-" : "+";
        return before + tenthsOf(error19);
    };
    PilotDigits.reading = [this] { return tenthsOf(pilot); };
    NoiseDigits.reading = [this] {
        return figuresOf({&noise[0], &noise[1]}) + " / " + figuresOf({&noise[2], &noise[3]});
    };
    DistortionDigits.reading = [this] {
        return figuresOf({&distortion[0]}) + "." + figuresOf({&distortion[1], &distortion[2]});
    };
    SeparationDigits.reading = [this] {
        return figuresOf({&separation[0], &separation[1]}) + " / " +
               figuresOf({&separation[2], &separation[3]});
    };
}

void Form_C::onLoad() {
    SegmentGreen = display::Colour{0x00ff00};
    for (display::Picture* key : {&Image_Reset1, &Image2, &Image3}) key->picture = "ResN";
}

void Form_C::reset(int code) {
    driver.HM_Parar();
    driver.HM_Reset(code);
    driver.HM_Parar();
    if (code == kNoise) {
        StationState.FloorNoiseL = "xx";
        StationState.FloorNoiseR = "xx";
    } else if (code == kDistortion) {
        StationState.FloorThd = "0";
    } else {
        StationState.FloorSepL = "0";
        StationState.FloorSepR = "0";
    }
    program.Form_B->cambfre();
}

void Form_C::Command1() {
    const Readings readings = driver.HM_Data();
    float level = RdsLevel;
    driver.HM_DataRDS(Error57, level);
    RdsLevel = level;

    // Without a pilot its error means nothing.
    Label_19K_FrecError.caption =
        readings.pilotLevel > kLeastLevel ? signedTenths(readings.pilotError).view() : kMeaningless;
    Label_PilotLevel.caption = mask("0.0", readings.pilotLevel);
    Label_LeftNoise.caption = mask("0.0", readings.noiseLeft);
    Label_RightNoise.caption = mask("0.0", readings.noiseRight);
    Label_HarmonicDistortion.caption = mask("0.00", readings.distortion);
    Label_ChannelSep_Left.caption = mask("0.0", readings.separationLeft);
    Label_ChannelSep_Right.caption = mask("0.0", readings.separationRight);
    showRds();
    showSeparation(readings);
    showSound();
}

void Form_C::showRds() {
    Label_57K_FrecError.caption =
        RdsLevel > kLeastLevel ? signedTenths(Error57).view() : kMeaningless;
    Label_RDSLevel.caption = mask("0.0", RdsLevel);
}

void Form_C::showSeparation(const Readings& readings) {
    const int leftFigure =
        inDemoMode() ? 45 : separationFigure(readings.separationLeft, StationState.FloorSepL);
    const int rightFigure =
        inDemoMode() ? 45 : separationFigure(readings.separationRight, StationState.FloorSepR);
    Command2(1, leftFigure / 10);
    Command2(2, leftFigure % 10);
    Command2(3, rightFigure / 10);
    Command2(4, rightFigure % 10);
}

void Form_C::readFrozen() {
    const auto stored =
        require(desktop(), ResponseSwitch::read(program.files, SwitchLine::PilotLevel));
    FrozenError19 = static_cast<float>(stored.value(SwitchLine::PilotError));
    FrozenPilot = static_cast<float>(stored.value(SwitchLine::PilotLevel));
    StationState.ResponseState = "sisi";
}

void Form_C::Command4() {
    float error = driver.HM_Data().pilotError;
    if (inDemoMode()) {
        error = 0.5f;
    } else {
        // While a response run is armed the digits show the values from the moment of arming: the
        // test tones disturb the pilot.
        if (StationState.ResponseState == "si") readFrozen();
        if (StationState.ResponseAuto == "si") {
            error = FrozenError19;
        } else {
            FrozenError19 = error;
        }
    }
    const PilotErrorFigure figure = pilotErrorFigure(error);
    Line147.colour = SegmentGreen;
    Line148.colour = figure.negative ? kDark : SegmentGreen;
    if (!figure.digits.changes) return;
    const auto& [first, second, third] = figure.digits.places;
    if (first == ThreePlaces::kBlank) {
        Command3(22);
    } else {
        Command3(1, first);
    }
    if (second == ThreePlaces::kBlank) {
        Command3(33);
        // Writes one digit; it stays until it is written again.
        Label_19K_FrecError.caption = wholeText(third);
    } else {
        Command3(2, second);
    }
    Command3(3, third);
}

void Form_C::Command6() {
    float level = driver.HM_Data().pilotLevel;
    if (inDemoMode()) level = 10;
    if (StationState.ResponseAuto == "si") {
        level = FrozenPilot;
    } else {
        FrozenPilot = level;
    }
    const auto [first, second, third] = pilotLevelDigits(level).places;
    if (first == ThreePlaces::kBlank) {
        Command5(11);
    } else {
        Command5(1, first);
    }
    if (second == ThreePlaces::kBlank) {
        Command5(22);
    } else {
        Command5(2, second);
    }
    Command5(3, third);
}

void Form_C::Command11() {
    const Readings readings = driver.HM_Data();
    const int leftFigure =
        noiseFigure(inDemoMode() ? 70.f : readings.noiseLeft, StationState.FloorNoiseL);
    const int rightFigure =
        noiseFigure(inDemoMode() ? 72.f : readings.noiseRight, StationState.FloorNoiseR);
    Command10(1, leftFigure / 10);
    Command10(2, leftFigure % 10);
    Command10(3, rightFigure / 10);
    Command10(4, rightFigure % 10);
}

void Form_C::Command13() {
    const Readings readings = driver.HM_Data();
    const double figure =
        inDemoMode() ? 127 : distortionFigure(readings.distortion, StationState.FloorThd);
    const ThreePlaces digits = distortionDigits(figure);
    for (int place = 1; place <= 3; ++place) {
        Command12(place, digits.places[static_cast<std::size_t>(place - 1)]);
    }
}

void Form_C::Command2(int place, int digit) {
    drawAt(separation, place, digit, kRedLit);
}

void Form_C::Command3(int place, int digit) {
    if (place == 22) error19[0].blank(kDark);
    if (place == 33) error19[1].blank(kDark);
    drawAt(error19, place, digit, SegmentGreen);
}

void Form_C::Command5(int place, int digit) {
    if (place == 11) pilot[0].blank(kDark);
    if (place == 22) pilot[1].blank(kDark);
    drawAt(pilot, place, digit, SegmentGreen);
}

void Form_C::Command10(int place, int digit) {
    drawAt(noise, place, digit, kRedLit);
}

void Form_C::Command12(int place, int digit) {
    drawAt(distortion, place, digit, kRedLit);
}

template MadeForm makeForm(Program&, Slot<Form_C>&);

}  // namespace hmonitor
