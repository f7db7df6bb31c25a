// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_edit_measurement.h"
#include "program/language.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kWidth = 6200;
constexpr float kLeft = 300;
constexpr float kInner = kWidth - 2 * kLeft;
constexpr float kFieldLeft = 1900;
constexpr float kFieldHeight = 330;

constexpr TextStyle kSection{{140, Weight::Bold}};
constexpr TextStyle kEntry{{130}};

}  // namespace

void frmEditMeasurement::layOut() {
    language = panelLanguage(desktop().userLanguageId());
    const bool spanish = language == Language::Spanish;
    layWindow(kWidth, 5500,
              spanish ? "Información de Medición Espectral" : "Spectral Mesaurement information",
              Faceplate);
    layOutIdentity();
    layOutFrequencies();
    layOutPlace();
    layOutKeys();
    tabOrder(MeasurementNameField, MeasurementCommentField, Combo_StartFreq, Combo_StopFreq, LatDeg,
             LatMin, LatSec, ComboNS, LonDeg, LonMin, LonSec, ComboWE, Alt_Text, PicOk1, PicOk2,
             PicCancel);
}

void frmEditMeasurement::layOutIdentity() {
    constexpr float kFieldWidth = kWidth - kLeft - kFieldLeft;
    auto word = [y = 560.f](Label& label, const Words& words) mutable {
        place(label, {kLeft, y, kFieldLeft - kLeft - 60, kFieldHeight}, look::kCaptionText, words);
        y += 420;
    };
    place(FrameMeasurementID, {kLeft, 220, kInner, 220}, kSection,
          Words{"Informacion de las Mediciones", "Mesaurements information"});
    word(MeasurementNameLabel, {"Nombre Medición", "Name:"});
    word(MeasurementCommentLabel, {"Comentario", "Comment:"});
    word(MeasurementTimeStampLabel, {"Fecha Creación", "Creation date:"});
    // A file's name has 255 bytes, and a letter may have two.
    place(MeasurementNameField, {kFieldLeft, 560, kFieldWidth, kFieldHeight}, kEntry,
          Says{"Nombre de la medición", "Name of the measurement"})
        .maxLength = 120;
    place(MeasurementCommentField, {kFieldLeft, 980, kFieldWidth, kFieldHeight}, kEntry,
          Says{"Comentario", "Comment"});
    place(MeasurementTimeStampField, {kFieldLeft, 1400, kFieldWidth, kFieldHeight},
          kEntry.in(kCyan));
}

void frmEditMeasurement::layOutFrequencies() {
    constexpr float kTop = 1960;
    const auto word = [](Label& label, float edge, float wide, const Words& words) {
        place(label, {edge, kTop + 340, wide, kFieldHeight}, look::kCaptionText, words);
    };
    place(FrameFreq, {kLeft, kTop, kInner, 220}, kSection,
          Words{"Intervalo de Frecuencias a Analizar", "Frequency range to analyze:"});
    word(StartStopLabel, kLeft, 2150, {"Relevar frecuencias desde", "Scan frequencies from:"});
    place(Combo_StartFreq, {2500, kTop + 340, 1150, kFieldHeight},
          Says{"Frecuencia inicial en MHz", "Start frequency in MHz"});
    word(StartStopDivLabel, 3730, 480, {"hasta", "To:"});
    place(Combo_StopFreq, {4230, kTop + 340, 1150, kFieldHeight},
          Says{"Frecuencia final en MHz", "End frequency in MHz"});
    word(StartStopUnit, 5460, 440, {"MHz", "MHz"});
}

void frmEditMeasurement::layOutPlace() {
    constexpr float kTop = 3200;
    place(FrameLocalization, {kLeft, kTop - 340, kInner, 220}, kSection,
          Words{"Localización del Instrumental", "Location:"});
    const auto word = [](Label& label, int row, const Words& words) {
        place(label, {kLeft, kTop + 420.f * static_cast<float>(row), 1300, kFieldHeight},
              look::kCaptionText, words);
    };
    const auto field = [this](TextField& entry, int row, int column, const char* mark,
                              const Words& says) {
        const float x = kFieldLeft + 950 * static_cast<float>(column);
        const float y = kTop + 420.f * static_cast<float>(row);
        place(entry, {x, y, 740, kFieldHeight}, kEntry.right(), Says{says}).maxLength = 6;
        place(PlaceMarks[3 * row + column], {x + 770, y, 150, kFieldHeight}, look::kCaptionText,
              mark);
    };
    word(MeasurementLatLabel, 0, {"Latitud", "Latitude:"});
    field(LatDeg, 0, 0, "°", {"Grados de latitud", "Degrees of latitude"});
    field(LatMin, 0, 1, "'", {"Minutos de latitud", "Minutes of latitude"});
    field(LatSec, 0, 2, "''", {"Segundos de latitud", "Seconds of latitude"});
    place(ComboNS, {kFieldLeft + 2900, kTop, 800, kFieldHeight},
          Says{"Norte o sur", "North or south"});
    word(MeasurementLonLabel, 1, {"Longitud", "Longitude:"});
    field(LonDeg, 1, 0, "°", {"Grados de longitud", "Degrees of longitude"});
    field(LonMin, 1, 1, "'", {"Minutos de longitud", "Minutes of longitude"});
    field(LonSec, 1, 2, "''", {"Segundos de longitud", "Seconds of longitude"});
    place(ComboWE, {kFieldLeft + 2900, kTop + 420, 800, kFieldHeight},
          Says{"Este u oeste", "East or west"});
    word(MeasurementAltLabel, 2, {"Altitud", "Altitude:"});
    place(Alt_Text, {kFieldLeft, kTop + 840, 940, kFieldHeight}, kEntry.right(),
          Says{"Altitud en metros", "Altitude in metres"})
        .maxLength = 8;
    place(AltUnit, {kFieldLeft + 1010, kTop + 840, 500, kFieldHeight}, look::kCaptionText, "mts");
}

void frmEditMeasurement::layOutKeys() {
    constexpr float kKeyWidth = 1900;
    constexpr float kRight = kWidth - kLeft - kKeyWidth;
    constexpr Box kOk{kRight - kKeyWidth - 140, 4820, kKeyWidth, look::kKeyHeight};
    constexpr Words kOkWords{"Aceptar", "Accept"};
    place(PicOk1, kOk, kOkWords, Says{kOkWords}, Hidden{}).enabled = false;
    place(PicOk2, kOk, kOkWords, Says{kOkWords}, Role::Default);
    place(PicCancel, {kRight, 4820, kKeyWidth, look::kKeyHeight}, Words{"Cancelar", "Cancel"},
          Says{"Cancelar", "Cancel"}, Role::Cancel);
}

}  // namespace hmonitor
