// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/quality/form_c.h"

#include <initializer_list>

#include "program/figure_tips.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kHeight = 1260;
constexpr float kDigitTop = 55;
constexpr float kDigitWidth = 205;
constexpr float kDigitHeight = 260;

}  // namespace

void Form_C::layOut() {
    layPanel(kHeight, Faceplate, Heading, 80, {"CALIDAD", "QUALITY"});
    layOutColumns();
    layOutDigits();
    layOutResets();
    layOutSound();
    limits.layOut();
    placeSign(sign, 60,
              {&Error19Well, &Error19Digits, &PilotWell, &PilotDigits, &NoiseWell, &NoiseDigits,
               &DistortionWell, &DistortionDigits, &SeparationWell, &SeparationDigits, &Error57Well,
               &RdsWell});
    program.figureTips.tell(*this);
}

void Form_C::layOutColumns() {
    auto column = [x = look::kMargin](float wide, Label& head, const Words& words, Panel& well,
                                      std::initializer_list<Label*> values, Label& unit,
                                      const char* unitText) mutable {
        place(head, {x, 270, wide + 40, 150}, look::kCaptionText, words);
        place(well, {x, 440, wide, 310}, Surface::Well);
        // The unit in small print at the right, on the baseline of the readout.
        place(unit, {wide - 280, 110, 230, 150}, &well, look::kUnitText, unitText);
        const float room = (wide - 360) / static_cast<float>(values.size());
        float edge = 50;
        for (Label* value : values) {
            place(*value, {edge, 35, room, 240}, &well, look::kSmallReadoutText.right(),
                  Readout{words});
            edge += room;
        }
        x += wide + 87;
    };
    column(1300, Label_ErrorFrecuencia19Khz, {"Error Frec. 19Khz", "19Khz Freq. Error"},
           Error19Well, {&Label_19K_FrecError}, Error19Unit, "Hz");
    column(1260, Label_NivelPiloto, {"Nivel tono piloto", "Pilot Level"}, PilotWell,
           {&Label_PilotLevel}, PilotUnit, "%");
    column(1700, Label_PisoDeRuido, {"Piso de ruido", "Noise level"}, NoiseWell,
           {&Label_LeftNoise, &Label_RightNoise}, NoiseUnit, "dB");
    column(1900, Label_DistorsionArmonica, {"Distorsion armonica", "Harmonic distortion"},
           DistortionWell, {&Label_HarmonicDistortion}, DistortionUnit, "%");
    column(2040, Label_SeparacionDeCanales, {"Separacion de canales", "Channel Separation"},
           SeparationWell, {&Label_ChannelSep_Left, &Label_ChannelSep_Right}, SeparationUnit, "dB");
    column(1300, Label_57KhzError, {"Error Frec. 57Khz", "57Khz Freq. Error"}, Error57Well,
           {&Label_57K_FrecError}, Error57Unit, "Hz");
    column(1260, Label_NivelRDS, {"Nivel RDS", "RDS level"}, RdsWell, {&Label_RDSLevel}, RdsUnit,
           "%");
    Label_LeftNoise.says = {"Piso de ruido, izquierdo", "Noise level, left"};
    Label_RightNoise.says = {"Piso de ruido, derecho", "Noise level, right"};
    Label_ChannelSep_Left.says = {"Separación de canales, izquierdo", "Channel separation, left"};
    Label_ChannelSep_Right.says = {"Separación de canales, derecho", "Channel separation, right"};
}

void Form_C::layOutResets() {
    const auto reset = [](Picture& key, const Panel& well, const Words& says) {
        place(key, {well.left + well.width - 470, 215, 470, 200}, "ResN", SaysAndTip{says});
    };
    reset(Image_Reset1, NoiseWell, {"Borrar el resultado de ruido", "Clear the noise result"});
    reset(Image2, DistortionWell,
          {"Borrar el resultado de distorsión", "Clear the distortion result"});
    reset(Image3, SeparationWell,
          {"Borrar el resultado de separación", "Clear the separation result"});
    tabOrder(Image_Reset1, Image2, Image3, SoundDown, SoundUp, SoundMute);
}

void Form_C::layOutDigits() {
    // The digits are limited by the stored results of the station; the labels are not.
    const auto digits = [](Panel& panel, const Panel& well, const Words& says) {
        place(panel, {well.left, 800, well.width, 370}, Surface::Well, Says{says});
    };
    digits(Error19Digits, Error19Well,
           {"Dígitos del error de 19 kHz", "Digits of the 19 kHz error"});
    digits(PilotDigits, PilotWell, {"Dígitos del nivel de piloto", "Digits of the pilot level"});
    digits(NoiseDigits, NoiseWell,
           {"Dígitos del ruido, izquierdo y derecho", "Digits of the noise, left and right"});
    digits(DistortionDigits, DistortionWell,
           {"Dígitos de la distorsión", "Digits of the distortion"});
    digits(SeparationDigits, SeparationWell,
           {"Dígitos de la separación, izquierdo y derecho",
            "Digits of the separation, left and right"});

    constexpr LineStyle kSign{look::kUnlit, 2.5f, Stroke::Segment};
    place(Line147, 120, 190, 270, 190, &Error19Digits, kSign);
    place(Line148, 195, 115, 195, 265, &Error19Digits, kSign);
    const auto row = [this](auto& places, Panel& in, std::initializer_list<float> lefts) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            placeDigit(places[i], {lefts.begin()[i], kDigitTop, kDigitWidth, kDigitHeight}, &in,
                       look::kUnlit);
        }
    };
    row(error19, Error19Digits, {380, 680, 980});
    row(pilot, PilotDigits, {300, 600, 900});
    row(distortion, DistortionDigits, {520, 820, 1120});
    row(noise, NoiseDigits, {170, 460, 970, 1260});
    row(separation, SeparationDigits, {330, 620, 1170, 1460});

    const auto point = [](Shape& shape, float middle, Panel& in, Colour colour) {
        // The decimal point: one and a half times as wide as a segment, at the bottom of the
        // digits.
        constexpr float kSize = 60;
        constexpr float kFoot = kDigitTop + kDigitHeight + 20;
        place(shape, {middle - kSize / 2, kFoot - kSize, kSize, kSize}, &in,
              Fill{colour, colour, Outline::Oval});
    };
    point(Error19Point, 920, Error19Digits, SegmentGreen);
    point(PilotPoint, 840, PilotDigits, SegmentGreen);
    point(DistortionPoint, 760, DistortionDigits, Colour{0x2317fd});
}

}  // namespace hmonitor
