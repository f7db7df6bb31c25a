// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/frm_edit_measurement.h"
#include "core/look.h"
#include "core/window_look.h"

namespace hmonitor {

using display::Surface;

namespace {

constexpr float kWidth = 6200;
constexpr float kHeight = 5500;
constexpr float kLeft = 300;
constexpr float kInner = kWidth - 2 * kLeft;
constexpr float kFieldLeft = 1900;
constexpr float kFieldHeight = 330;

constexpr display::Font kSection{140, display::Weight::Bold};
constexpr display::Font kWords{120, display::Weight::Normal};
constexpr display::Font kEntry{130, display::Weight::Normal};

void word(display::Label& label) {
    label.font = kWords;
    label.colour = look::kCaptionColour;
}

}  // namespace

void frmEditMeasurement::layOut() {
    width = kWidth;
    height = kHeight;
    caption = "Información de Medición Espectral";
    place(Faceplate, {0, 0, kWidth, kHeight}).surface = Surface::Faceplate;
    layOutIdentity();
    layOutFrequencies();
    layOutPlace();
    layOutKeys();
}

void frmEditMeasurement::layOutIdentity() {
    place(FrameMeasurementID, {kLeft, 220, kInner, 220}).caption = "Informacion de las Mediciones";
    FrameMeasurementID.font = kSection;
    struct Row {
        display::Label& label;
        const char* words;
    };
    const Row rows[] = {{MeasurementNameLabel, "Nombre Medición"},
                        {MeasurementCommentLabel, "Comentario"},
                        {MeasurementTimeStampLabel, "Fecha Creación"}};
    float y = 560;
    for (const Row& row : rows) {
        place(row.label, {kLeft, y, kFieldLeft - kLeft - 60, kFieldHeight}).caption = row.words;
        word(row.label);
        y += 420;
    }
    constexpr float kFieldWidth = kWidth - kLeft - kFieldLeft;
    place(MeasurementNameField, {kFieldLeft, 560, kFieldWidth, kFieldHeight}).font = kEntry;
    MeasurementNameField.says = {"Nombre de la medición", "Name of the measurement"};
    // A file's name has 255 bytes, and a letter may have two.
    MeasurementNameField.maxLength = 120;
    MeasurementNameField.tabIndex = 1;
    place(MeasurementCommentField, {kFieldLeft, 980, kFieldWidth, kFieldHeight}).font = kEntry;
    MeasurementCommentField.says = {"Comentario", "Comment"};
    MeasurementCommentField.tabIndex = 2;
    place(MeasurementTimeStampField, {kFieldLeft, 1400, kFieldWidth, kFieldHeight}).font = kEntry;
    MeasurementTimeStampField.colour = display::kCyan;
}

void frmEditMeasurement::layOutFrequencies() {
    constexpr float kTop = 1960;
    place(FrameFreq, {kLeft, kTop, kInner, 220}).caption = "Intervalo de Frecuencias a Analizar";
    FrameFreq.font = kSection;
    place(StartStopLabel, {kLeft, kTop + 340, 2150, kFieldHeight}).caption =
        "Relevar frecuencias desde";
    word(StartStopLabel);
    place(Combo_StartFreq, {2500, kTop + 340, 1150, kFieldHeight}).tabIndex = 3;
    Combo_StartFreq.says = {"Frecuencia inicial en MHz", "Start frequency in MHz"};
    place(StartStopDivLabel, {3730, kTop + 340, 480, kFieldHeight}).caption = "hasta";
    word(StartStopDivLabel);
    place(Combo_StopFreq, {4230, kTop + 340, 1150, kFieldHeight}).tabIndex = 4;
    Combo_StopFreq.says = {"Frecuencia final en MHz", "End frequency in MHz"};
    place(StartStopUnit, {5460, kTop + 340, 440, kFieldHeight}).caption = "MHz";
    word(StartStopUnit);
}

void frmEditMeasurement::layOutPlace() {
    constexpr float kTop = 2860;
    place(FrameLocalization, {kLeft, kTop, kInner, 220}).caption = "Localización del Instrumental";
    FrameLocalization.font = kSection;
    struct Row {
        display::Label& label;
        const char* words;
        display::TextField* fields[3];
        display::Label* marks;
        display::ComboBox& side;
        display::Words says[3];
        display::Words sideSays;
    };
    const Row rows[] = {
        {MeasurementLatLabel,
         "Latitud",
         {&LatDeg, &LatMin, &LatSec},
         &PlaceMarks[0],
         ComboNS,
         {{"Grados de latitud", "Degrees of latitude"},
          {"Minutos de latitud", "Minutes of latitude"},
          {"Segundos de latitud", "Seconds of latitude"}},
         {"Norte o sur", "North or south"}},
        {MeasurementLonLabel,
         "Longitud",
         {&LonDeg, &LonMin, &LonSec},
         &PlaceMarks[3],
         ComboWE,
         {{"Grados de longitud", "Degrees of longitude"},
          {"Minutos de longitud", "Minutes of longitude"},
          {"Segundos de longitud", "Seconds of longitude"}},
         {"Este u oeste", "East or west"}},
    };
    constexpr const char* kMarks[] = {"°", "'", "''"};
    float y = kTop + 340;
    int tab = 4;
    for (const Row& row : rows) {
        place(row.label, {kLeft, y, 1300, kFieldHeight}).caption = row.words;
        word(row.label);
        for (std::size_t i = 0; i < 3; ++i) {
            const float x = kFieldLeft + 950 * static_cast<float>(i);
            place(*row.fields[i], {x, y, 740, kFieldHeight}).font = kEntry;
            row.fields[i]->align = display::Align::Right;
            row.fields[i]->maxLength = 6;
            row.fields[i]->says = row.says[i];
            row.fields[i]->tabIndex = ++tab;
            place(row.marks[i], {x + 770, y, 150, kFieldHeight}).caption = kMarks[i];
            word(row.marks[i]);
        }
        place(row.side, {kFieldLeft + 2900, y, 800, kFieldHeight}).tabIndex = ++tab;
        row.side.says = row.sideSays;
        y += 420;
    }
    place(MeasurementAltLabel, {kLeft, y, 1300, kFieldHeight}).caption = "Altitud";
    word(MeasurementAltLabel);
    place(Alt_Text, {kFieldLeft, y, 940, kFieldHeight}).font = kEntry;
    Alt_Text.align = display::Align::Right;
    Alt_Text.maxLength = 8;
    Alt_Text.says = {"Altitud en metros", "Altitude in metres"};
    Alt_Text.tabIndex = ++tab;
    place(AltUnit, {kFieldLeft + 1010, y, 500, kFieldHeight}).caption = "mts";
    word(AltUnit);
}

void frmEditMeasurement::layOutKeys() {
    constexpr float kTop = 4820;
    constexpr float kKeyWidth = 1900;
    const display::Box ok{kWidth - kLeft - 2 * kKeyWidth - 140, kTop, kKeyWidth, look::kKeyHeight};
    place(PicOk1, ok).enabled = false;
    place(PicOk2, ok).isDefault = true;
    for (display::Key* key : {&PicOk1, &PicOk2}) {
        key->caption = "Aceptar";
        key->says = {"Aceptar", "Accept"};
        key->tabIndex = 14;
    }
    PicOk1.visible = false;
    place(PicCancel, {kWidth - kLeft - kKeyWidth, kTop, kKeyWidth, look::kKeyHeight}).caption =
        "Cancelar";
    PicCancel.isCancel = true;
    PicCancel.says = {"Cancelar", "Cancel"};
    PicCancel.tabIndex = 15;
}

void frmEditMeasurement::sayInEnglish() {
    caption = "Spectral Mesaurement information";
    FrameMeasurementID.caption = "Mesaurements information";
    MeasurementNameLabel.caption = "Name:";
    MeasurementCommentLabel.caption = "Comment:";
    MeasurementTimeStampLabel.caption = "Creation date:";
    FrameFreq.caption = "Frequency range to analyze:";
    StartStopLabel.caption = "Scan frequencies from:";
    StartStopDivLabel.caption = "To:";
    FrameLocalization.caption = "Location:";
    MeasurementLatLabel.caption = "Latitude:";
    MeasurementLonLabel.caption = "Longitude:";
    MeasurementAltLabel.caption = "Altitude:";
    PicOk1.caption = "Accept";
    PicOk2.caption = "Accept";
    PicCancel.caption = "Cancel";
}

}  // namespace hmonitor
