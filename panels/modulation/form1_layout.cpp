// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/figure_tips.h"
#include "core/language.h"
#include "core/look.h"
#include "core/numbers.h"
#include "panels/modulation/form1.h"

namespace hmonitor {

using namespace std::chrono_literals;
using display::Align;
using display::Surface;

namespace {

constexpr float kHeight = 2040;

/// Twips for one unit of the bar: 48 units are a percent.
constexpr float kBarUnit = 0.85f;
constexpr float kBarLeft = 230;  ///< where 0 percent stands
constexpr float kPercent = 48;
constexpr float kBarEnd = kBarLeft + 160 * kPercent;
constexpr float kWellWidth = kBarEnd + kBarLeft;

constexpr display::Colour kOverScale{0x4040ff};
constexpr display::Colour kBarDark{0x7c7c1e};

constexpr display::Words kModulation{"Porcentaje de modulacion [%]", "Modulation level [%]"};

}  // namespace

void Form1::layOut() {
    width = look::kRackWidth;
    height = kHeight;
    caption = "HMonitor";
    language = panelLanguage(desktop().userLanguageId());
    layOutHead();
    layOutBar();
    layOutMultipath();
    layOutKeys();
    layOutReadouts();
    placeSign(sign, 95,
              {&BarWell, &MultipathWell, &PercentWell, &DeviationWell, &PeaksWell, &FieldWell,
               &CarrierWell, &LampWell});
    tellFigures(*this);
    Timer1.interval = 100ms;
    Timer4.interval = 100ms;
    Timer5.interval = 60000ms;
    Timer5.enabled = true;
}

void Form1::layOutHead() {
    place(Faceplate, {0, 0, look::kRackWidth, kHeight}).surface = Surface::Faceplate;
    place(Picture3, {0, 0, look::kRackWidth, 330});
    Picture3.says = {"Mover el rack; doble clic para la versión",
                     "Move the rack; double click for the version"};
    place(Brand, {look::kMargin, 80, 1500, 210}).picture = "LogoMarvenia";
    place(Label1, {look::kMargin, 80, 1500, 210}).caption = "Teskel";
    Label1.font = look::kSmallReadout;
    Label1.colour = look::kScaleColour;
    place(Product, {1900, 120, 1500, 160}).caption = "HMonitor";
    Product.font = display::Font{140};
    Product.colour = look::kCaptionColour;
    place(Heading, {8640, 110, 3000, 160}).caption =
        wordsIn(language, {"RF / MODULACION", "RF / MODULATION"});
    Heading.font = look::kHeading;
    Heading.colour = look::kCaptionColour;
    Heading.align = Align::Right;
}

void Form1::layOutBar() {
    place(BarCaption, {look::kMargin, 350, 4000, 150}).caption = wordsIn(language, kModulation);
    BarCaption.font = look::kCaption;
    BarCaption.colour = look::kCaptionColour;

    place(BarWell, {look::kMargin, 520, kWellWidth * kBarUnit, 800}).surface = Surface::Well;
    BarWell.unit = kBarUnit;
    BarWell.says = {"Barra de modulación, %", "Modulation bar, %"};
    place(BarFill, {kBarLeft, 130, 0, 230}, &BarWell);
    BarFill.colour = display::kCyan;
    BarFill.fadesFrom = kBarDark;

    // The head of the bar; its right edge is the mark.
    place(Label10, {-40, 130, 270, 230}, &BarWell).surface = Surface::Glow;

    for (int i = 0; i <= 80; ++i) {
        const int percent = 2 * i;
        const float x = kBarLeft + kPercent * static_cast<float>(percent);
        const bool big = percent % 10 == 0;
        display::Line& tick = BarTick[static_cast<std::size_t>(i)];
        place(tick, x, big ? 600 : 660, x, 800, &BarWell);
        tick.colour = percent >= 100 ? kOverScale : look::kCaptionColour;
        tick.thickness = big ? 1.2f : 0.7f;
    }
    for (int i = 0; i <= 16; ++i) {
        const float x = kBarLeft + kPercent * 10 * static_cast<float>(i);
        display::Label& number = BarNumber[static_cast<std::size_t>(i)];
        place(number, {x - 230, 420, 460, 160}, &BarWell).caption = wholeText(10 * i);
        number.font = look::kScale;
        number.align = Align::Centre;
        number.colour = i >= 10 ? kOverScale : look::kScaleColour;
    }
    place(Picture1, {200, 50, 60, 70}, &BarWell).picture = "MarkTop";
    place(Picture2, {180, 820, 100, 80}, &BarWell).picture = "MarkBottom";
    place(Line1, kBarLeft, 60, kBarLeft, 860, &BarWell);
    Line1.thickness = 2;
}

void Form1::layOutMultipath() {
    place(Label_Multipath, {look::kMargin, 1380, 2600, 150}).caption = "Multipath";
    Label_Multipath.font = look::kCaption;
    Label_Multipath.colour = look::kCaptionColour;
    place(MultipathWell, {look::kMargin, 1550, 3000, 370}).surface = Surface::Well;
    MultipathWell.says = {"Multitrayecto, elementos encendidos de 5",
                          "Multipath, elements lit of 5"};
    for (int i = 0; i < 5; ++i) {
        display::Picture& element = multypath[static_cast<std::size_t>(i)];
        place(element, {130 + 250 * static_cast<float>(i), 65, 200, 240}, &MultipathWell);
        element.picture = "multyoff";
    }
    place(multygood, {1450, 105, 720, 180}, &MultipathWell).caption = "GOOD";
    multygood.colour = display::Colour{0x1b6013};
    place(multybad, {2250, 105, 650, 180}, &MultipathWell).caption = "BAD";
    multybad.colour = display::kRed;
    multybad.visible = false;
    multygood.says = {"Multitrayecto bueno", "Multipath good"};
    multybad.says = {"Multitrayecto malo", "Multipath bad"};
    multygood.font = look::kLamp;
    multybad.font = look::kLamp;
}

void Form1::layOutKeys() {
    struct Row {
        display::Picture& key;
        const char* picture;
        const char* word;
        display::Words says;
    };
    const Row rows[] = {
        {Image_Average, "msN", "AVG", {"Detector de valor medio", "Average detector"}},
        {Image6, "PeakN", "PEAK", {"Detector de picos", "Peak detector"}},
        {SSbAMmode, "MinN", "AM", {"AM (sin función)", "AM (no function)"}},
        {Image9, "MinN", "PRINT", {"Imprimir el rack", "Print the rack"}},
        {Image7, "MinN", "FOLD", {"Plegar el rack", "Fold the rack"}},
        {Image_Power, "PowerN", "POWER", {"Apagar y salir", "Power off and leave"}},
    };
    constexpr float kFirst = 3560;
    constexpr float kKeyWidth = 590;
    constexpr float kGap = 48;
    int place_ = 0;
    for (const Row& row : rows) {
        const float x = kFirst + (kKeyWidth + kGap) * static_cast<float>(place_);
        place(row.key, {x, 1550, kKeyWidth, 370}).picture = row.picture;
        row.key.caption = row.word;
        row.key.says = row.says;
        row.key.tip = row.says;
        row.key.tabIndex = ++place_;
    }
}

void Form1::layOutReadouts() {
    struct Row {
        display::Label& caption;
        display::Panel& well;
        display::Label& value;
        display::Label& unit;
        display::Words words;
        const char* unitText;
        display::Colour colour;
    };
    const Row rows[] = {
        {Label_NivelDeModulacion, PercentWell, Label_FMod_Porcentaje, PercentUnit, kModulation, "%",
         display::kCyan},
        {Label_NivelModulacionFrecuencia,
         DeviationWell,
         Label_FMod,
         DeviationUnit,
         {"F-Mod [KHz]", "F-Mod [KHz]"},
         "kHz",
         display::kCyan},
        {Label_PeakPerMinute,
         PeaksWell,
         Label_PicosPorMinuto,
         PeaksUnit,
         {"Picos por Minuto", "Peaks per Minute"},
         "/min",
         display::kWhite},
        {Label_IntensidadDeCampo,
         FieldWell,
         Label_FieldIntensity,
         FieldUnit,
         {"Intensidad de campo [dB/uV]", "Field intensity [db/uV]"},
         "dBµV",
         display::kGreen},
        {Label_DesviacionDePortadora,
         CarrierWell,
         Label_CarrierDeviation,
         CarrierUnit,
         {"Desviacion de portadora [KHz]", "Carrier deviation [KHz]"},
         "kHz",
         display::kCyan},
    };
    constexpr float kLeft = 7560;
    constexpr float kWidth = 1980;
    constexpr float kAcross = 2100;
    constexpr float kDown = 530;
    int index = 0;
    for (const Row& row : rows) {
        const int down = index / 2;
        const float x = kLeft + kAcross * static_cast<float>(index % 2);
        const float y = 350 + kDown * static_cast<float>(down);
        ++index;
        place(row.caption, {x, y, kWidth + 60, 150}).caption = wordsIn(language, row.words);
        row.caption.font = look::kCaption;
        row.caption.colour = look::kCaptionColour;
        place(row.well, {x, y + 160, kWidth, 350}).surface = Surface::Well;
        place(row.value, {60, 40, 1360, 280}, &row.well).align = Align::Right;
        row.value.font = look::kReadout;
        row.value.colour = row.colour;
        row.value.readout = true;
        row.value.says = row.words;
        place(row.unit, {1460, 130, 480, 160}, &row.well).caption = row.unitText;
        row.unit.font = look::kUnit;
        row.unit.colour = look::kUnitColour;
    }
    place(LampWell, {kLeft + kAcross, 350 + 2 * kDown + 160, kWidth, 350}).surface = Surface::Well;
    place(Label_OVER, {80, 90, 820, 180}, &LampWell).caption = "OVER";
    place(Label_Bad_CarrierDev, {1000, 90, 880, 180}, &LampWell).caption = "BAD";
    Label_OVER.says = {"Portadora fuera de rango", "Carrier out of range"};
    Label_Bad_CarrierDev.says = {"Desviación de portadora mala", "Carrier deviation bad"};
    Label_OVER.tip = {"Encendida mientras las últimas cuatro lecturas están en el final, ±10 kHz",
                      "Lit while the last four readings stand at the end of the range, ±10 kHz"};
    Label_Bad_CarrierDev.tip = {"Encendida mientras la media de 10 s es de 10 kHz o más",
                                "Lit while the mean of 10 s is 10 kHz or more"};
    const auto likeLamp = [](display::Label& lamp) {
        lamp.font = look::kLamp;
        lamp.colour = display::kRed;
        lamp.visible = false;
        lamp.align = Align::Centre;
    };
    likeLamp(Label_OVER);
    likeLamp(Label_Bad_CarrierDev);
}

}  // namespace hmonitor
