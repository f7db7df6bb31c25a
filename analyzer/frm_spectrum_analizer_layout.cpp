// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_spectrum_analizer.h"
#include "core/language.h"
#include "core/look.h"
#include "core/numbers.h"
#include "core/window_look.h"

namespace hmonitor {

using display::Align;
using display::Surface;

namespace {

constexpr float kWidth = 13200;
constexpr float kHeight = 6900;
constexpr float kLeft = 220;

// The views. A row of the bars' picture is 59 twips high, and so is one of the map, whose units are
// 11.8 twips; their scales begin on the same line. At its first width the bars' picture has 20
// twips a column, and the map is as wide as its panel.
constexpr float kPanelTop = 560;
constexpr float kPanelWidth = 10150;
constexpr float kPanelHeight = 5290;
constexpr float kPictureLeft = 120;
constexpr float kPictureTop = 60;
constexpr float kRow = 59;
constexpr float kZoomWidth = 16350;
constexpr float kZoomScaleTop = 400;
constexpr float kZoomHeight = kZoomScaleTop + 70 * kRow + 640;
constexpr float kMapUnit = 11.8f;
constexpr float kMapScaleTop = 24 * kMapUnit;
constexpr float kMapWidth = 848 * kMapUnit;
constexpr float kMapHeight = (24 + 70 * 5 + 38) * kMapUnit;
constexpr int kLastScroll = 40;

constexpr float kFoot = 6290;
constexpr float kInfoLeft = 10860;
constexpr float kInfoWidth = kWidth - kInfoLeft - kLeft;

constexpr display::Font kField{125, display::Weight::Normal};
constexpr display::Font kHeadingFont{140, display::Weight::Bold};
constexpr display::Font kSmallPrint{95, display::Weight::Normal};

}  // namespace

void frmSpectrumAnalizer::layOut() {
    width = kWidth;
    height = kHeight;
    caption = "3D Spectrum Analyzer";
    place(Faceplate, {0, 0, kWidth, kHeight}).surface = Surface::Faceplate;
    layOutHead();
    layOutViews();
    layOutKeys();
    layOutInfo();
    layOutLegend();
    Timer1.interval = std::chrono::milliseconds(500);
}

void frmSpectrumAnalizer::layOutHead() {
    constexpr float kTop = 120;
    constexpr float kKeyHeight = 330;
    place(LabelMode, {kLeft, kTop, 2900, kKeyHeight}).caption = "Spectral Zoom Analyzer";
    LabelMode.font = display::Font{190, display::Weight::Bold};
    LabelMode.readout = true;
    LabelMode.says = {"Vista", "View"};
    LabelMode.tip = {"La vista que se muestra: el último barrido o la densidad de todos",
                     "The view on show: the last sweep, or the density of all"};
    place(cboCurrentMeasurementFile, {3200, kTop, 3100, kKeyHeight}).tabIndex = 1;
    cboCurrentMeasurementFile.firesAgain = true;
    cboCurrentMeasurementFile.says = {"Archivo de medición", "Measurement file"};
    struct KeyRow {
        display::Picture& key;
        const char* caption;
        display::Words says;
    };
    const KeyRow keys[] = {
        {picAddMeasurement, "Nueva", {"Nueva sesión de mediciones", "New measurement session"}},
        {picEditMeasurement, "Editar", {"Editar la sesión", "Edit the session"}},
        {picDelMeasurement, "Borrar", {"Borrar la sesión", "Delete the session"}},
    };
    float x = 6420;
    int tab = 1;
    for (const KeyRow& row : keys) {
        place(row.key, {x, kTop, 780, kKeyHeight}).picture = "OpenN";
        row.key.caption = row.caption;
        row.key.says = row.says;
        row.key.tip = row.says;
        row.key.tabIndex = ++tab;
        x += 840;
    }
    place(Label_Unit, {9000, kTop, kWidth - 9000 - kLeft, kKeyHeight}).align = Align::Right;
    Label_Unit.font = display::Font{110};
    Label_Unit.colour = look::kUnitColour;
}

void frmSpectrumAnalizer::layOutViews() {
    place(Panel3D1, {kLeft, kPanelTop, kPanelWidth, kPanelHeight}).surface = Surface::Well;
    place(Picture3d,
          {kPictureLeft, kPictureTop + kZoomScaleTop - kMapScaleTop, kMapWidth, kMapHeight},
          &Panel3D1)
        .drawing.scale(kMapUnit, 0);
    Picture3d.says = {"Mapa de densidad: frecuencia, nivel y su probabilidad",
                      "Density map: frequency, level and its probability"};
    place(PictureZoom, {kPictureLeft, kPictureTop, kZoomWidth, kZoomHeight}, &Panel3D1)
        .drawing.scale(1, 0);
    PictureZoom.says = {"Último barrido en barras", "Last sweep as bars"};
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const float y = kPanelTop + kPictureTop + kZoomScaleTop + 10 * kRow * static_cast<float>(i);
        place(levels[i], {kLeft + kPanelWidth + 50, y - 75, 360, 150}).caption =
            wholeText(100 - 10 * static_cast<int>(i));
        levels[i].font = look::kScale;
        levels[i].colour = look::kScaleColour;
    }
    place(HScroll1, {kLeft, kPanelTop + kPanelHeight + 70, kPanelWidth, 230})
        .range(0, kLastScroll, 10);
    HScroll1.says = {"Desplazar el gráfico", "Move the picture sideways"};
    HScroll1.tabIndex = 12;
}

void frmSpectrumAnalizer::layOutKeys() {
    constexpr float kKeyHeight = 430;
    place(butSpecMode, {kLeft, kFoot, 1900, kKeyHeight}).tabIndex = 5;
    butSpecMode.caption = "Modo espectro 3D";
    butSpecMode.says = {"Cambiar de vista", "Change the view"};
    place(btnDetail_Lower, {2250, kFoot, 1150, kKeyHeight}).caption = "Detalle −";
    btnDetail_Lower.says = {"Menos detalle", "Less detail"};
    btnDetail_Lower.tip = {"Open Lower Definiton Map of this area (Ctrl-Z)",
                           "Open Lower Definiton Map of this area (Ctrl-Z)"};
    btnDetail_Lower.shortcut = "Ctrl+Z";
    btnDetail_Lower.tabIndex = 6;
    place(btnDetail_Higher, {3480, kFoot, 1150, kKeyHeight}).caption = "Detalle +";
    btnDetail_Higher.says = {"Más detalle", "More detail"};
    btnDetail_Higher.tip = {"Open Higher Definiton Map of this area (Ctrl-X)",
                            "Open Higher Definiton Map of this area (Ctrl-X)"};
    btnDetail_Higher.shortcut = "Ctrl+X";
    btnDetail_Higher.tabIndex = 7;

    const display::Box start{5060, kFoot, 1600, kKeyHeight};
    const display::Box pause{6740, kFoot, 1600, kKeyHeight};
    place(butStart, start).picture = "StartA";
    place(butStart_BW, start).picture = "StartN";
    place(butPause, pause).picture = "PauseA";
    place(butPause_BW, pause).picture = "PauseN";
    for (display::Picture* key : {&butStart, &butStart_BW}) {
        key->caption = key == &butStart ? "Midiendo" : "Iniciar";
        key->says = {"Comenzar a medir", "Start measuring"};
        key->tip = key->says;
        key->tabIndex = 8;
    }
    for (display::Picture* key : {&butPause, &butPause_BW}) {
        key->caption = "Pausa";
        key->says = {"Detener la medición", "Stop measuring"};
        key->tip = key->says;
        key->tabIndex = 9;
    }
    butStart.visible = false;
    butPause_BW.visible = false;
    place(SSCommand1, {8770, kFoot, 1600, kKeyHeight}).caption = "Modo impresion";
    SSCommand1.says = {"Página para imprimir", "Page to print"};
    SSCommand1.tabIndex = 11;
}

void frmSpectrumAnalizer::layOutInfo() {
    struct Row {
        display::Label& label;
        display::Label& field;
        const char* words;
        display::Words tip;
    };
    const Row rows[] = {
        {MeasurementNameLabel,
         MeasurementNameField,
         "Nombre:",
         {"Nombre de la sesión y de su archivo", "Name of the session and of its file"}},
        {MeasurementCommentLabel,
         MeasurementCommentField,
         "Comentario:",
         {"Comentario guardado con la sesión", "Comment kept with the session"}},
        {MeasurementStartFreqLabel,
         MeasurementStartFreqField,
         "Frecuencia inicial:",
         {"Donde empieza cada barrido, MHz, 88.0 a 108.0",
          "Where each sweep begins, MHz, 88.0 to 108.0"}},
        {MeasurementStopFreqLabel,
         MeasurementStopFreqField,
         "Frecuencia final:",
         {"Donde termina cada barrido, MHz, 88.0 a 108.0",
          "Where each sweep ends, MHz, 88.0 to 108.0"}},
        {MeasurementAquisitonsLabel,
         MeasurementAquisitonsField,
         "Cantidad de muestras:",
         {"Barridos contados en la sesión", "Sweeps counted into the session"}},
        {MeasurementTimeStampLabel,
         MeasurementTimeStampField,
         "Fecha:",
         {"Cuando se creó la sesión", "When the session was created"}},
        {MeasurementLatLabel,
         MeasurementLatField,
         "Latitud:",
         {"Latitud del lugar: grados, minutos y segundos, 0 a 90°",
          "Latitude of the place: degrees, minutes and seconds, 0 to 90°"}},
        {MeasurementLonLabel,
         MeasurementLonField,
         "Longitud:",
         {"Longitud del lugar: grados, minutos y segundos, 0 a 180°",
          "Longitude of the place: degrees, minutes and seconds, 0 to 180°"}},
        {MeasurementAltLabel,
         MeasurementAltField,
         "Altitud:",
         {"Altitud del lugar sobre el nivel del mar, metros",
          "Altitude of the place above sea level, metres"}},
    };
    constexpr float kStep = 432;
    place(FrameInfo, {kInfoLeft, kPanelTop - 10, kInfoWidth, 190}).caption =
        "Informacion de las Mediciones";
    FrameInfo.font = kHeadingFont;
    float y = kPanelTop + 230;
    for (const Row& row : rows) {
        place(row.label, {kInfoLeft, y, kInfoWidth, 140}).caption = row.words;
        row.label.font = display::Font{110};
        row.label.colour = look::kCaptionColour;
        place(row.field, {kInfoLeft, y + 150, kInfoWidth, 240}).surface = Surface::Well;
        row.field.font = kField;
        row.field.colour = display::kCyan;
        row.field.readout = true;
        row.field.tip = row.tip;
        y += kStep;
    }
    place(FrameStatus, {kInfoLeft, y + 40, kInfoWidth, 190}).caption = "Estado";
    FrameStatus.font = kHeadingFont;
    place(Label_State, {kInfoLeft, y + 240, kInfoWidth, 150}).font = display::Font{115};
    Label_State.colour = look::kScaleColour;
    Label_State.readout = true;
    Label_State.tip = {"Lo que hace el analizador ahora", "What the analyzer does now"};
    place(Label_Damaged, {kInfoLeft, y + 395, kInfoWidth, 150}).caption = "El archivo está dañado.";
    Label_Damaged.font = display::Font{115, display::Weight::Bold};
    Label_Damaged.colour = display::Colour{0x9090ff};
    Label_Damaged.visible = false;
    place(Label_NotCounted, {kInfoLeft, y + 540, kInfoWidth, 320}).caption =
        "Unidad sin barridos: la cantidad de muestras no se guarda.";
    Label_NotCounted.font = display::Font{105};
    Label_NotCounted.colour = look::kCaptionColour;
    Label_NotCounted.wraps = true;
    Label_NotCounted.visible = false;
}

void frmSpectrumAnalizer::layOutLegend() {
    /// Shares of sweeps in 5280ths, as the map has them, and how they read.
    struct Share {
        std::size_t entry;
        const char* words;
    };
    constexpr Share kShares[] = {
        {1, "0.02 %"}, {5, "0.1 %"}, {53, "1 %"}, {264, "5 %"}, {1267, "24 %"}};
    constexpr DensityColors kColors = buildPalette();
    constexpr float kTop = 5560;
    constexpr float kGap = 50;
    constexpr float kSwatch = (kInfoWidth - 4 * kGap) / 5;
    constexpr float kRamp = kInfoWidth / 5;
    place(Frame_Probabilidad, {kInfoLeft, kTop, kInfoWidth, 190}).caption = "Probabilidad";
    Frame_Probabilidad.font = kHeadingFont;
    for (std::size_t i = 0; i < Swatch.size(); ++i) {
        const float x = kInfoLeft + static_cast<float>(i) * (kSwatch + kGap);
        place(Swatch[i], {x, kTop + 230, kSwatch, 170}).colour = kColors[kShares[i].entry];
        Swatch[i].fadesFrom = kColors[kShares[i].entry];
        place(SwatchShare[i], {x - 20, kTop + 415, kSwatch + 40, 120}).caption = kShares[i].words;
        SwatchShare[i].font = kSmallPrint;
        SwatchShare[i].colour = look::kScaleColour;
        SwatchShare[i].align = Align::Centre;
        // Each fifth of the table fades from its first entry to its last.
        place(Ramp[i], {kInfoLeft + static_cast<float>(i) * kRamp, kTop + 600, kRamp, 90}).colour =
            kColors[256 * i + 255];
        Ramp[i].fadesFrom = kColors[256 * i];
    }
    for (display::Label* end : {&Label_Baja, &Label_Alta}) {
        const bool low = end == &Label_Baja;
        place(*end, {low ? kInfoLeft : kInfoLeft + kInfoWidth / 2, kTop + 710, kInfoWidth / 2, 140})
            .caption = low ? "Baja" : "Alta";
        end->align = low ? Align::Left : Align::Right;
        end->font = display::Font{110};
        end->colour = look::kCaptionColour;
    }
}

void frmSpectrumAnalizer::sayInPanelLanguage() {
    language = panelLanguage(desktop().userLanguageId());
    if (language == display::Language::Spanish) return;
    FrameInfo.caption = "Mesaurements information";
    MeasurementNameLabel.caption = "Name:";
    MeasurementCommentLabel.caption = "Comment:";
    MeasurementStartFreqLabel.caption = "Start frequency:";
    MeasurementStopFreqLabel.caption = "End frequency:";
    MeasurementAquisitonsLabel.caption = "Number of samples:";
    MeasurementTimeStampLabel.caption = "Date:";
    MeasurementLatLabel.caption = "Latitude:";
    MeasurementLonLabel.caption = "Longitude:";
    MeasurementAltLabel.caption = "Altitude:";
    FrameStatus.caption = "Status";
    Frame_Probabilidad.caption = "Probability";
    Label_Alta.caption = "High";
    Label_Baja.caption = "Low";
    SSCommand1.caption = "Print mode";
    picAddMeasurement.caption = "New";
    picEditMeasurement.caption = "Edit";
    picDelMeasurement.caption = "Delete";
    btnDetail_Lower.caption = "Detail −";
    btnDetail_Higher.caption = "Detail +";
    butStart.caption = "Measuring";
    butPause.caption = "Pause";
    butPause_BW.caption = "Pause";
    Label_Damaged.caption = "The file is damaged.";
    Label_NotCounted.caption = "A unit without sweeps: the number of samples is not saved.";
}

}  // namespace hmonitor
