// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"
#include "panels/modulation/form1.h"
#include "program/figure_tips.h"
#include "program/look.h"
#include "program/page_file.h"

namespace hmonitor {

using namespace display;
using namespace std::chrono_literals;

namespace {

constexpr float kHeight = 2040;

/// Twips for one unit of the bar: 48 units are a percent.
constexpr float kBarUnit = 0.85f;
constexpr float kBarLeft = 230;  ///< the position of 0 percent
constexpr float kPercent = 48;
constexpr float kBarEnd = kBarLeft + 160 * kPercent;
constexpr float kWellWidth = kBarEnd + kBarLeft;

constexpr Colour kOverScale{0x4040ff};
constexpr Colour kBarDark{0x7c7c1e};

constexpr Words kModulation{"Porcentaje de modulacion [%]", "Modulation level [%]"};

}  // namespace

void Form1::layOut() {
    layPanel(kHeight, Faceplate, Heading, 110, {"RF / MODULACION", "RF / MODULATION"});
    layOutHead();
    layOutBar();
    layOutMultipath();
    layOutKeys();
    layOutReadouts();
    place(Trouble, {3500, 115, 5500, 180}, look::kPlainText.in(look::kNoticeColour), "", Hidden{},
          Readout{"Por qué no se guarda", "Why nothing is stored"});
    limits.layOut();
    placeSign(sign, 95,
              {&BarWell, &MultipathWell, &PercentWell, &DeviationWell, &PeaksWell, &FieldWell,
               &CarrierWell, &LampWell});
    program.figureTips.tell(*this);
    Timer1.interval = 100ms;
    Timer4.interval = 100ms;
    Timer5.interval = 60000ms;
    Timer5.enabled = true;
}

void Form1::layOutHead() {
    place(Picture3, {0, 0, look::kRackWidth, 330},
          Says{"Mover el rack; doble clic para la versión",
               "Move the rack; double click for the version"});
    place(Brand, {look::kMargin, 80, 1500, 210}, "LogoMarvenia");
    place(Label1, {look::kMargin, 80, 1500, 210},
          TextStyle{look::kSmallReadout, look::kScaleColour}, "Teskel");
    place(Product, {1900, 120, 1500, 160}, look::kDialogText.in(look::kCaptionColour), "HMonitor");
}

void Form1::layOutBar() {
    place(BarCaption, {look::kMargin, 350, 4000, 150}, look::kCaptionText, kModulation);
    place(BarWell, {look::kMargin, 520, kWellWidth * kBarUnit, 800}, Surface::Well,
          Says{"Barra de modulación, %", "Modulation bar, %"})
        .unit = kBarUnit;
    place(BarFill, {kBarLeft, 130, 0, 230}, &BarWell, Fill{kCyan, kBarDark});
    // The leading end of the bar; its right edge is the mark.
    place(Label10, {-40, 130, 270, 230}, &BarWell, Surface::Glow);

    for (int i = 0; i <= 80; ++i) {
        const int percent = 2 * i;
        const float x = kBarLeft + kPercent * static_cast<float>(percent);
        const bool big = percent % 10 == 0;
        place(BarTick[i], x, big ? 600 : 660, x, 800, &BarWell,
              LineStyle{percent >= 100 ? kOverScale : look::kCaptionColour, big ? 1.2f : 0.7f});
    }
    for (int i = 0; i <= 16; ++i) {
        const float x = kBarLeft + kPercent * 10 * static_cast<float>(i);
        place(BarNumber[i], {x - 230, 420, 460, 160}, &BarWell, wholeText(10 * i),
              look::kScaleText.in(i >= 10 ? kOverScale : look::kScaleColour).centred());
    }
    place(Picture1, {200, 50, 60, 70}, &BarWell, "MarkTop");
    place(Picture2, {180, 820, 100, 80}, &BarWell, "MarkBottom");
    place(Line1, kBarLeft, 60, kBarLeft, 860, &BarWell).thickness = 2;
}

void Form1::layOutMultipath() {
    constexpr TextStyle kGood{look::kLamp, {0x1b6013}};
    place(Label_Multipath, {look::kMargin, 1380, 2600, 150}, look::kCaptionText, "Multipath");
    place(MultipathWell, {look::kMargin, 1550, 3000, 370}, Surface::Well,
          Says{"Multitrayecto, elementos encendidos de 5", "Multipath, elements lit of 5"});
    for (int i = 0; i < 5; ++i) {
        place(multypath[i], {130 + 250 * static_cast<float>(i), 65, 200, 240}, &MultipathWell,
              "multyoff");
    }
    place(multygood, {1450, 105, 720, 180}, &MultipathWell, kGood, "GOOD",
          Says{"Multitrayecto bueno", "Multipath good"});
    place(multybad, {2250, 105, 650, 180}, &MultipathWell, kGood.in(kRed), "BAD", Hidden{},
          Says{"Multitrayecto malo", "Multipath bad"});
}

void Form1::layOutKeys() {
    auto key = [x = 3560.f](Picture& picture, const char* drawing, const char* word,
                            const Words& says) mutable {
        place(picture, {x, 1550, 590, 370}, drawing, Caption{word}, SaysAndTip{says});
        x += 638;
    };
    key(Image_Average, "msN", "AVG", {"Detector de valor medio", "Average detector"});
    key(Image6, "PeakN", "PEAK", {"Detector de picos", "Peak detector"});
    key(SSbAMmode, "MinN", "AM", {"AM (sin función)", "AM (no function)"});
    key(Image9, "MinN", "PRINT", {"Imprimir el rack", "Print the rack"});
    key(Image7, "MinN", "FOLD", {"Plegar el rack", "Fold the rack"});
    key(Image_Power, "PowerN", "POWER", {"Apagar y salir", "Power off and leave"});
    // A small key above the one that prints the same page.
    // Heard far from its neighbour "Print", it says of what it makes a file.
    place(KeyPdf, {Image9.left, 1345, 590, 185}, "MinN", Caption{kPdfCaption},
          Says{"Guardar el rack como archivo PDF", "Save the rack as a PDF file"}, Tip{kPdfTip});
    tabOrder(Image_Average, Image6, SSbAMmode, Image9, Image7, Image_Power, KeyPdf);
}

void Form1::layOutReadouts() {
    constexpr float kLeft = 7560;
    constexpr float kTop = 350;
    constexpr float kWidth = 1980;
    constexpr float kAcross = 2100;
    constexpr float kDown = 530;
    auto readout = [index = 0](Label& head, Panel& well, Label& value, Label& unit,
                               const Words& words, const char* unitText, Colour colour) mutable {
        const float x = kLeft + kAcross * static_cast<float>(index % 2);
        const float y = kTop + kDown * static_cast<float>(index / 2);
        ++index;
        place(head, {x, y, kWidth + 60, 150}, look::kCaptionText, words);
        place(well, {x, y + 160, kWidth, 350}, Surface::Well);
        place(value, {60, 40, 1360, 280}, &well, look::kReadoutText.in(colour), Readout{words});
        place(unit, {1460, 130, 480, 160}, &well, look::kUnitText, unitText);
    };
    readout(Label_NivelDeModulacion, PercentWell, Label_FMod_Porcentaje, PercentUnit, kModulation,
            "%", kCyan);
    readout(Label_NivelModulacionFrecuencia, DeviationWell, Label_FMod, DeviationUnit,
            {"F-Mod [KHz]", "F-Mod [KHz]"}, "kHz", kCyan);
    readout(Label_PeakPerMinute, PeaksWell, Label_PicosPorMinuto, PeaksUnit,
            {"Picos por Minuto", "Peaks per Minute"}, "/min", kWhite);
    readout(Label_IntensidadDeCampo, FieldWell, Label_FieldIntensity, FieldUnit,
            {"Intensidad de campo [dB/uV]", "Field intensity [db/uV]"}, "dBµV", kGreen);
    readout(Label_DesviacionDePortadora, CarrierWell, Label_CarrierDeviation, CarrierUnit,
            {"Desviacion de portadora [KHz]", "Carrier deviation [KHz]"}, "kHz", kCyan);

    constexpr TextStyle kLampText{look::kLamp, kRed, Align::Centre};
    place(LampWell, {kLeft + kAcross, kTop + 2 * kDown + 160, kWidth, 350}, Surface::Well);
    place(Label_OVER, {80, 90, 820, 180}, &LampWell, kLampText, "OVER", Hidden{},
          Says{"Portadora fuera de rango", "Carrier out of range"},
          Tip{"Encendida mientras las últimas cuatro lecturas están en el final, ±10 kHz",
              "Lit while the last four readings stand at the end of the range, ±10 kHz"});
    place(Label_Bad_CarrierDev, {1000, 90, 880, 180}, &LampWell, kLampText, "BAD", Hidden{},
          Says{"Desviación de portadora mala", "Carrier deviation bad"},
          Tip{"Encendida mientras la media de 10 s es de 10 kHz o más",
              "Lit while the mean of 10 s is 10 kHz or more"});
}

}  // namespace hmonitor
