// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/figure_tips.h"
#include "core/language.h"
#include "core/look.h"
#include "panels/quality/form_c.h"

namespace hmonitor {

using display::Align;
using display::Colour;
using display::Label;
using display::Panel;
using display::Surface;

namespace {

constexpr float kHeight = 1260;
constexpr float kCaptionTop = 270;
constexpr float kLabelTop = 440;
constexpr float kLabelHeight = 310;
constexpr float kDigitsTop = 800;
constexpr float kDigitsHeight = 370;

constexpr float kDigitTop = 55;
constexpr float kDigitWidth = 205;
constexpr float kDigitHeight = 260;

// Left edges and widths of the seven columns.
constexpr float kColumnGap = 87;
constexpr float kWidths[] = {1300, 1260, 1700, 1900, 2040, 1300, 1260};

constexpr float columnLeft(int column) {
    float left = look::kMargin;
    for (int i = 0; i < column; ++i) left += kWidths[i] + kColumnGap;
    return left;
}

}  // namespace

struct Form_C::Column {
    int index;
    Label& caption;
    display::Words words;
    Panel& well;
    Label& value;
    Label* second;  ///< the right channel, where there are two
    Panel* digits;
    Label& unit;
    const char* unitText;
};

void Form_C::layOut() {
    width = look::kRackWidth;
    height = kHeight;
    caption = "HMonitor";
    language = panelLanguage(desktop().userLanguageId());
    place(Faceplate, {0, 0, look::kRackWidth, kHeight}).surface = Surface::Faceplate;
    place(Heading, {8640, 80, 3000, 160}).caption = wordsIn(language, {"CALIDAD", "QUALITY"});
    Heading.font = look::kHeading;
    Heading.colour = look::kCaptionColour;
    Heading.align = Align::Right;
    const Column columns[] = {
        {0,
         Label_ErrorFrecuencia19Khz,
         {"Error Frec. 19Khz", "19Khz Freq. Error"},
         Error19Well,
         Label_19K_FrecError,
         nullptr,
         &Error19Digits,
         Error19Unit,
         "Hz"},
        {1,
         Label_NivelPiloto,
         {"Nivel tono piloto", "Pilot Level"},
         PilotWell,
         Label_PilotLevel,
         nullptr,
         &PilotDigits,
         PilotUnit,
         "%"},
        {2,
         Label_PisoDeRuido,
         {"Piso de ruido", "Noise level"},
         NoiseWell,
         Label_LeftNoise,
         &Label_RightNoise,
         &NoiseDigits,
         NoiseUnit,
         "dB"},
        {3,
         Label_DistorsionArmonica,
         {"Distorsion armonica", "Harmonic distortion"},
         DistortionWell,
         Label_HarmonicDistortion,
         nullptr,
         &DistortionDigits,
         DistortionUnit,
         "%"},
        {4,
         Label_SeparacionDeCanales,
         {"Separacion de canales", "Channel Separation"},
         SeparationWell,
         Label_ChannelSep_Left,
         &Label_ChannelSep_Right,
         &SeparationDigits,
         SeparationUnit,
         "dB"},
        {5,
         Label_57KhzError,
         {"Error Frec. 57Khz", "57Khz Freq. Error"},
         Error57Well,
         Label_57K_FrecError,
         nullptr,
         nullptr,
         Error57Unit,
         "Hz"},
        {6,
         Label_NivelRDS,
         {"Nivel RDS", "RDS level"},
         RdsWell,
         Label_RDSLevel,
         nullptr,
         nullptr,
         RdsUnit,
         "%"},
    };
    for (const Column& column : columns) layOutColumn(column);
    layOutReset(Image_Reset1, NoiseWell.left + NoiseWell.width,
                {"Borrar el resultado de ruido", "Clear the noise result"}, 1);
    layOutReset(Image2, DistortionWell.left + DistortionWell.width,
                {"Borrar el resultado de distorsión", "Clear the distortion result"}, 2);
    layOutReset(Image3, SeparationWell.left + SeparationWell.width,
                {"Borrar el resultado de separación", "Clear the separation result"}, 3);
    layOutDigits();
    sayWhoseFigures();
    placeSign(sign, 60,
              {&Error19Well, &Error19Digits, &PilotWell, &PilotDigits, &NoiseWell, &NoiseDigits,
               &DistortionWell, &DistortionDigits, &SeparationWell, &SeparationDigits, &Error57Well,
               &RdsWell});
    tellFigures(*this);
}

void Form_C::sayWhoseFigures() {
    Label_LeftNoise.says = {"Piso de ruido, izquierdo", "Noise level, left"};
    Label_RightNoise.says = {"Piso de ruido, derecho", "Noise level, right"};
    Label_ChannelSep_Left.says = {"Separación de canales, izquierdo", "Channel separation, left"};
    Label_ChannelSep_Right.says = {"Separación de canales, derecho", "Channel separation, right"};
    // The digits are limited by what is stored of the station; the labels are not.
    Error19Digits.says = {"Dígitos del error de 19 kHz", "Digits of the 19 kHz error"};
    PilotDigits.says = {"Dígitos del nivel de piloto", "Digits of the pilot level"};
    NoiseDigits.says = {"Dígitos del ruido, izquierdo y derecho",
                        "Digits of the noise, left and right"};
    DistortionDigits.says = {"Dígitos de la distorsión", "Digits of the distortion"};
    SeparationDigits.says = {"Dígitos de la separación, izquierdo y derecho",
                             "Digits of the separation, left and right"};
}

void Form_C::layOutColumn(const Column& column) {
    const float x = columnLeft(column.index);
    const float wide = kWidths[column.index];
    place(column.caption, {x, kCaptionTop, wide + 40, 150}).caption =
        wordsIn(language, column.words);
    column.value.says = column.words;
    column.caption.font = look::kCaption;
    column.caption.colour = look::kCaptionColour;
    place(column.well, {x, kLabelTop, wide, kLabelHeight}).surface = Surface::Well;
    // The unit in small print at the right, on the readouts' foot.
    constexpr float kUnitWidth = 230;
    place(column.unit, {wide - kUnitWidth - 50, 110, kUnitWidth, 150}, &column.well).caption =
        column.unitText;
    column.unit.font = look::kUnit;
    column.unit.colour = look::kUnitColour;
    const float room = wide - kUnitWidth - 130;
    const float half = room / 2;
    if (column.second) {
        place(column.value, {50, 35, half, 240}, &column.well);
        place(*column.second, {50 + half, 35, half, 240}, &column.well);
    } else {
        place(column.value, {50, 35, room, 240}, &column.well);
    }
    for (Label* label : {&column.value, column.second}) {
        if (!label) continue;
        label->font = look::kSmallReadout;
        label->align = Align::Right;
        label->colour = display::kCyan;
        label->readout = true;
    }
    if (column.digits) {
        place(*column.digits, {x, kDigitsTop, wide, kDigitsHeight}).surface = Surface::Well;
    }
}

void Form_C::layOutReset(display::Picture& key, float right, display::Words says, int order) {
    place(key, {right - 470, 215, 470, 200}).picture = "ResN";
    key.says = says;
    key.tip = says;
    key.tabIndex = order;
}

void Form_C::layOutPoint(display::Shape& point, float x, Panel& in, Colour colour) {
    // Half as wide again as a segment, on the foot of the digits.
    constexpr float kSize = 60;
    constexpr float kFoot = kDigitTop + kDigitHeight + 20;
    place(point, {x - kSize / 2, kFoot - kSize, kSize, kSize}, &in);
    point.outline = display::Outline::Oval;
    point.colour = colour;
    point.fadesFrom = colour;
}

void Form_C::layOutDigits() {
    const auto dark = look::kUnlit;
    auto box = [](float x) { return display::Box{x, kDigitTop, kDigitWidth, kDigitHeight}; };

    place(Line147, 120, 190, 270, 190, &Error19Digits);
    place(Line148, 195, 115, 195, 265, &Error19Digits);
    for (display::Line* stroke : {&Line147, &Line148}) {
        stroke->stroke = display::Stroke::Segment;
        stroke->thickness = 2.5f;
        stroke->colour = dark;
    }
    for (int i = 0; i < 3; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const float x = 300.f * static_cast<float>(i);
        placeDigit(error19[at], box(380 + x), &Error19Digits, dark);
        placeDigit(pilot[at], box(300 + x), &PilotDigits, dark);
        placeDigit(distortion[at], box(520 + x), &DistortionDigits, dark);
    }
    layOutPoint(Error19Point, 920, Error19Digits, SegmentGreen);
    layOutPoint(PilotPoint, 840, PilotDigits, SegmentGreen);
    layOutPoint(DistortionPoint, 760, DistortionDigits, Colour{0x2317fd});

    const float noiseAt[] = {170, 460, 970, 1260};
    const float separationAt[] = {330, 620, 1170, 1460};
    for (std::size_t i = 0; i < 4; ++i) {
        placeDigit(noise[i], box(noiseAt[i]), &NoiseDigits, dark);
        placeDigit(separation[i], box(separationAt[i]), &SeparationDigits, dark);
    }
}

}  // namespace hmonitor
