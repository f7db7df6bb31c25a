// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_spectrum_analizer.h"

#include <chrono>

#include "core/numbers.h"
#include "program/language.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

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

constexpr TextStyle kField{{125}, kCyan, Align::Left, Surface::Well};
constexpr TextStyle kFrame{{140, Weight::Bold}};
constexpr TextStyle kSmall{{110}, look::kCaptionColour};

}  // namespace

void frmSpectrumAnalizer::layOut() {
    language = panelLanguage(desktop().userLanguageId());
    layWindow(kWidth, kHeight, "3D Spectrum Analyzer", Faceplate);
    layOutHead();
    layOutViews();
    layOutKeys();
    layOutInfo();
    layOutLegend();
    tabOrder(cboCurrentMeasurementFile, picAddMeasurement, picEditMeasurement, picDelMeasurement,
             butSpecMode, btnDetail_Lower, btnDetail_Higher, butStart, butStart_BW, butPause,
             butPause_BW, SSCommand1, HScroll1, Picture3d, PictureZoom);
    Timer1.interval = std::chrono::milliseconds(500);
}

void frmSpectrumAnalizer::layOutHead() {
    constexpr float kTop = 120;
    constexpr float kKeyHeight = 330;
    constexpr TextStyle kMode{{190, Weight::Bold}};
    place(LabelMode, {kLeft, kTop, 2900, kKeyHeight}, kMode, "Spectral Zoom Analyzer",
          Readout{"Vista", "View"},
          Tip{"La vista que se muestra: el último barrido o la densidad de todos",
              "The view on show: the last sweep, or the density of all"});
    place(cboCurrentMeasurementFile, {3200, kTop, 3100, kKeyHeight},
          Says{"Archivo de medición", "Measurement file"})
        .firesAgain = true;
    auto key = [x = 6420.f](Picture& picture, const Words& words, const Words& says) mutable {
        place(picture, {x, kTop, 780, kKeyHeight}, "OpenN", Caption{words}, SaysAndTip{says});
        x += 840;
    };
    key(picAddMeasurement, {"Nueva", "New"},
        {"Nueva sesión de mediciones", "New measurement session"});
    key(picEditMeasurement, {"Editar", "Edit"}, {"Editar la sesión", "Edit the session"});
    key(picDelMeasurement, {"Borrar", "Delete"}, {"Borrar la sesión", "Delete the session"});
    place(Label_Unit, {9000, kTop, kWidth - 9000 - kLeft, kKeyHeight}, look::kUnitText.right());
}

void frmSpectrumAnalizer::layOutViews() {
    constexpr float kScaleTop = kPictureTop + kZoomScaleTop;
    place(Panel3D1, {kLeft, kPanelTop, kPanelWidth, kPanelHeight}, Surface::Well);
    place(Picture3d, {kPictureLeft, kScaleTop - kMapScaleTop, kMapWidth, kMapHeight}, &Panel3D1,
          Says{"Mapa de densidad: frecuencia, nivel y su probabilidad",
               "Density map: frequency, level and its probability"})
        .drawing.scale(kMapUnit, 0);
    place(PictureZoom, {kPictureLeft, kPictureTop, kZoomWidth, kZoomHeight}, &Panel3D1,
          Says{"Último barrido en barras", "Last sweep as bars"})
        .drawing.scale(1, 0);
    for (int i = 0; i < static_cast<int>(levels.size()); ++i) {
        const float y = kPanelTop + kScaleTop + 10 * kRow * static_cast<float>(i);
        place(levels[i], {kLeft + kPanelWidth + 50, y - 75, 360, 150}, look::kScaleText,
              wholeText(100 - 10 * i));
    }
    place(HScroll1, {kLeft, kPanelTop + kPanelHeight + 70, kPanelWidth, 230},
          Says{"Desplazar el gráfico", "Move the picture sideways"})
        .range(0, kLastScroll, 10);
}

void frmSpectrumAnalizer::layOutKeys() {
    constexpr float kKeyHeight = 430;
    constexpr Box kStart{5060, kFoot, 1600, kKeyHeight};
    constexpr Box kPause{6740, kFoot, 1600, kKeyHeight};
    constexpr SaysAndTip kStartTip{"Comenzar a medir", "Start measuring"};
    constexpr SaysAndTip kPauseTip{"Detener la medición", "Stop measuring"};
    place(butSpecMode, {kLeft, kFoot, 1900, kKeyHeight}, "Modo espectro 3D",
          Says{"Cambiar de vista", "Change the view"});
    place(btnDetail_Lower, {2250, kFoot, 1150, kKeyHeight}, Words{"Detalle −", "Detail −"},
          Says{"Menos detalle", "Less detail"},
          Tip{"Open Lower Definiton Map of this area (Ctrl-Z)",
              "Open Lower Definiton Map of this area (Ctrl-Z)"})
        .shortcut = "Ctrl+Z";
    place(btnDetail_Higher, {3480, kFoot, 1150, kKeyHeight}, Words{"Detalle +", "Detail +"},
          Says{"Más detalle", "More detail"},
          Tip{"Open Higher Definiton Map of this area (Ctrl-X)",
              "Open Higher Definiton Map of this area (Ctrl-X)"})
        .shortcut = "Ctrl+X";
    place(butStart, kStart, "StartA", Caption{"Midiendo", "Measuring"}, kStartTip, Hidden{});
    place(butStart_BW, kStart, "StartN", Caption{"Iniciar", "Start"}, kStartTip);
    place(butPause, kPause, "PauseA", Caption{"Pausa", "Pause"}, kPauseTip);
    place(butPause_BW, kPause, "PauseN", Caption{"Pausa", "Pause"}, kPauseTip, Hidden{});
    place(SSCommand1, {8770, kFoot, 1600, kKeyHeight}, Words{"Modo impresion", "Print mode"},
          Says{"Página para imprimir", "Page to print"});
}

void frmSpectrumAnalizer::layOutInfo() {
    float y = kPanelTop + 230;
    const auto row = [&y](Label& label, const Words& words, Label& field, const Words& tip) {
        place(label, {kInfoLeft, y, kInfoWidth, 140}, kSmall, words);
        place(field, {kInfoLeft, y + 150, kInfoWidth, 240}, kField, Readout{}, Tip{tip});
        y += 432;
    };
    place(FrameInfo, {kInfoLeft, kPanelTop - 10, kInfoWidth, 190}, kFrame,
          Words{"Informacion de las Mediciones", "Mesaurements information"});
    row(MeasurementNameLabel, {"Nombre:", "Name:"}, MeasurementNameField,
        {"Nombre de la sesión y de su archivo", "Name of the session and of its file"});
    row(MeasurementCommentLabel, {"Comentario:", "Comment:"}, MeasurementCommentField,
        {"Comentario guardado con la sesión", "Comment kept with the session"});
    row(MeasurementStartFreqLabel, {"Frecuencia inicial:", "Start frequency:"},
        MeasurementStartFreqField,
        {"Donde empieza cada barrido, MHz, 88.0 a 108.0",
         "Where each sweep begins, MHz, 88.0 to 108.0"});
    row(MeasurementStopFreqLabel, {"Frecuencia final:", "End frequency:"}, MeasurementStopFreqField,
        {"Donde termina cada barrido, MHz, 88.0 a 108.0",
         "Where each sweep ends, MHz, 88.0 to 108.0"});
    row(MeasurementAquisitonsLabel, {"Cantidad de muestras:", "Number of samples:"},
        MeasurementAquisitonsField,
        {"Barridos contados en la sesión", "Sweeps counted into the session"});
    row(MeasurementTimeStampLabel, {"Fecha:", "Date:"}, MeasurementTimeStampField,
        {"Cuando se creó la sesión", "When the session was created"});
    row(MeasurementLatLabel, {"Latitud:", "Latitude:"}, MeasurementLatField,
        {"Latitud del lugar: grados, minutos y segundos, 0 a 90°",
         "Latitude of the place: degrees, minutes and seconds, 0 to 90°"});
    row(MeasurementLonLabel, {"Longitud:", "Longitude:"}, MeasurementLonField,
        {"Longitud del lugar: grados, minutos y segundos, 0 a 180°",
         "Longitude of the place: degrees, minutes and seconds, 0 to 180°"});
    row(MeasurementAltLabel, {"Altitud:", "Altitude:"}, MeasurementAltField,
        {"Altitud del lugar sobre el nivel del mar, metros",
         "Altitude of the place above sea level, metres"});

    constexpr TextStyle kState{{115}, look::kScaleColour};
    constexpr TextStyle kDamaged{{115, Weight::Bold}, {0x9090ff}};
    constexpr TextStyle kNotCounted{{105}, look::kCaptionColour};
    place(FrameStatus, {kInfoLeft, y + 40, kInfoWidth, 190}, kFrame, Words{"Estado", "Status"});
    place(Label_State, {kInfoLeft, y + 240, kInfoWidth, 150}, kState, Readout{},
          Tip{"Lo que hace el analizador ahora", "What the analyzer does now"});
    place(Label_Damaged, {kInfoLeft, y + 395, kInfoWidth, 150}, kDamaged, Hidden{},
          Words{"El archivo está dañado.", "The file is damaged."});
    place(Label_NotCounted, {kInfoLeft, y + 540, kInfoWidth, 320}, kNotCounted, Hidden{},
          Words{"Unidad sin barridos: la cantidad de muestras no se guarda.",
                "A unit without sweeps: the number of samples is not saved."})
        .wraps = true;
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
    constexpr TextStyle kShare{{95}, look::kScaleColour, Align::Centre};
    constexpr float kTop = 5560;
    constexpr float kGap = 50;
    constexpr float kSwatch = (kInfoWidth - 4 * kGap) / 5;
    constexpr float kRamp = kInfoWidth / 5;
    constexpr float kHalf = kInfoWidth / 2;
    place(Frame_Probabilidad, {kInfoLeft, kTop, kInfoWidth, 190}, kFrame,
          Words{"Probabilidad", "Probability"});
    for (std::size_t i = 0; i < Swatch.size(); ++i) {
        const float x = kInfoLeft + static_cast<float>(i) * (kSwatch + kGap);
        place(Swatch[i], {x, kTop + 230, kSwatch, 170}, Fill{kColors[kShares[i].entry]});
        place(SwatchShare[i], {x - 20, kTop + 415, kSwatch + 40, 120}, kShare, kShares[i].words);
        // Each fifth of the table fades from its first entry to its last.
        place(Ramp[i], {kInfoLeft + static_cast<float>(i) * kRamp, kTop + 600, kRamp, 90},
              Fill{kColors[256 * i + 255], kColors[256 * i]});
    }
    place(Label_Baja, {kInfoLeft, kTop + 710, kHalf, 140}, kSmall, Words{"Baja", "Low"});
    place(Label_Alta, {kInfoLeft + kHalf, kTop + 710, kHalf, 140}, kSmall.right(),
          Words{"Alta", "High"});
}

}  // namespace hmonitor
