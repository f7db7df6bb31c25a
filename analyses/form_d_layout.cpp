// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"
#include "core/look.h"

namespace hmonitor {

using display::Align;
using display::Surface;

namespace {

constexpr float kPanelHeight = 1340;
constexpr float kKeyWidth = 640;
constexpr float kKeyHeight = 290;
constexpr float kFirstKey = 200;
constexpr float kKeyDown = 345;
/// Doors stand in two columns.
constexpr float kSecondColumn = 2950;

}  // namespace

void Form_D::layOut() {
    width = look::kRackWidth;
    height = kPanelHeight;
    caption = "HMonitor";
    place(Faceplate, {0, 0, look::kRackWidth, kPanelHeight}).surface = Surface::Faceplate;
    place(Heading, {8640, 60, 3000, 150}).caption = "ANALISIS";
    Heading.font = look::kHeading;
    Heading.colour = look::kCaptionColour;
    Heading.align = Align::Right;
    layOutDoors();
    // Fifty rows of twenty twips, and seventeen columns without a remainder.
    place(GraphWell, {6330, 150, 2590, 1080}).surface = Surface::Well;
    place(PictureGraph1, {80, 40, 2430, 1000}, &GraphWell).drawing.scale(1, 0);
    PictureGraph1.says = {"Espectro del canal sintonizado; doble clic para abrirlo",
                          "Spectrum of the tuned channel; double click to open it"};
    PictureGraph1.tip = PictureGraph1.says;
    PictureGraph1.tabIndex = 7;
    layOutFigures();
    placeSign(sign, 45, {});
}

void Form_D::layOutDoors() {
    struct Row {
        display::Picture& key;
        display::Label& label;
        const char* picture;
        const char* words;
        display::Words says;
        float left;
        int line;
    };
    const float first = look::kMargin;
    const Row rows[] = {
        {Image1,
         Label_SpectrumAnalyzer,
         "OpenN",
         "Analizador de espectro",
         {"Abrir el analizador de espectro", "Open the spectrum analyzer"},
         first,
         0},
        {Image2,
         Label_bandScanner,
         "OpenN",
         "Scanner de banda",
         {"Abrir el scanner de banda", "Open the band scanner"},
         first,
         1},
        {Image6,
         Label_SpectralZoom,
         "OpenN",
         "Spectral Zoom",
         {"Abrir el analizador 'Spectral Zoom'", "'Spectral Zoom' Analyzer"},
         first,
         2},
        {Image3,
         Label_FrequencyResponse,
         "OpenN",
         "Respuesta a frecuencia",
         {"Abrir la respuesta a frecuencia", "Open the frequency response"},
         kSecondColumn,
         0},
        {Image4,
         Label_OnAirPerformance,
         "LogN",
         "Performance On-Air",
         {"Abrir la performance On-Air", "Open the on-air performance"},
         kSecondColumn,
         2},
    };
    int tab = 0;
    for (const Row& row : rows) {
        const float y = kFirstKey + kKeyDown * static_cast<float>(row.line);
        place(row.key, {row.left, y, kKeyWidth, kKeyHeight}).picture = row.picture;
        row.key.says = row.says;
        row.key.tip = row.says;
        row.key.tabIndex = ++tab;
        place(row.label, {row.left + kKeyWidth + 120, y + 65, 1700, 170}).caption = row.words;
        row.label.font = look::kCaption;
        row.label.colour = look::kScaleColour;
    }
    // One tip in every language: the name of the analyzer.
    Image6.tip = {"'Spectral Zoom' Analyzer", "'Spectral Zoom' Analyzer"};
    Image4.tabIndex = 6;
    // The switch stands under the door of the analysis that it arms.
    place(Image5, {kSecondColumn, kFirstKey + kKeyDown, kKeyWidth, kKeyHeight}).picture = "OffN";
    Image5.says = {"Armar la medición de respuesta a frecuencia",
                   "Arm the frequency response measurement"};
    Image5.tip = Image5.says;
    Image5.tabIndex = 5;
    place(Label_ResponseSwitch,
          {kSecondColumn + kKeyWidth + 120, kFirstKey + kKeyDown + 65, 1700, 170})
        .caption = "Armar la respuesta";
    Label_ResponseSwitch.font = look::kCaption;
    Label_ResponseSwitch.colour = look::kScaleColour;
}

void Form_D::layOutFigures() {
    struct Row {
        display::Label& label;
        display::TextField& field;
        const char* words;
        display::Words says;
    };
    const Row rows[] = {
        {Label_RadiatedPower, Text1, "Radiated Power:", {"Potencia radiada", "Radiated power"}},
        {Label_MaxModulation, Text2, "Max. Modulation:", {"Modulación máxima", "Max. modulation"}},
        {Label_3secSilence,
         Text3,
         "3 sec. silence:",
         {"Silencios de 3 segundos", "3 second silences"}},
        {Label_InvertedPhase, Text4, "Inverted phase:", {"Fase invertida", "Inverted phase"}},
    };
    constexpr float kLeft = 9120;
    constexpr float kDown = 258;
    float y = 230;
    int tab = 7;
    for (const Row& row : rows) {
        place(row.label, {kLeft, y + 40, 1300, 170}).caption = row.words;
        row.label.font = look::kCaption;
        row.label.colour = look::kScaleColour;
        place(row.field, {kLeft + 1340, y, 1180, 240}).align = Align::Right;
        row.field.font = display::Font{150, display::Weight::Bold};
        row.field.colour = display::kCyan;
        row.field.says = row.says;
        row.field.tip = {"De normal.hm, que se lee cada minuto; no se cambia aquí",
                         "From normal.hm, which is read every minute; not changed here"};
        row.field.locked = true;
        row.field.tabIndex = ++tab;
        y += kDown;
    }
}

}  // namespace hmonitor
