// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

namespace {

/// The keys stand in three columns and three rows.
constexpr float kColumns[] = {look::kMargin, 2950};
constexpr Box keyAt(int column, int line) {
    return {kColumns[column], 200 + 345 * static_cast<float>(line), 640, 290};
}
/// In the third stand the keys that tell their window by themselves.
constexpr Box namedKeyAt(int line) {
    return {5440, keyAt(0, line).top, 860, 290};
}
constexpr Box besideKey(int column, int line) {
    const Box key = keyAt(column, line);
    return {key.right() + 120, key.top + 65, 1700, 170};
}

}  // namespace

void Form_D::layOut() {
    layPanel(1340, Faceplate, Heading, 55, {"ANALISIS", "ANALYSES"});
    layOutDoors();
    // Fifty rows of twenty twips; the width divides evenly by seventeen columns.
    place(GraphWell, {6330, 150, 2590, 1080}, Surface::Well);
    place(PictureGraph1, {80, 40, 2430, 1000}, &GraphWell,
          SaysAndTip{"Espectro del canal sintonizado; doble clic o Intro lo abre",
                     "Spectrum of the tuned channel; double click or Enter opens it"})
        .drawing.scale(1, 0);
    layOutFigures();
    placeSign(sign, 45, {});
    tabOrder(Image1, Image2, Image6, Image3, Image5, Image4, KeyHistory, KeyLimits, PictureGraph1,
             Text1, Text2, Text3, Text4);
}

void Form_D::layOutDoors() {
    place(Image1, keyAt(0, 0), "OpenN",
          SaysAndTip{"Abrir el analizador de espectro", "Open the spectrum analyzer"});
    place(Image2, keyAt(0, 1), "OpenN",
          SaysAndTip{"Abrir el scanner de banda", "Open the band scanner"});
    // The tip is the same in every language: the name of the analyzer.
    place(Image6, keyAt(0, 2), "OpenN",
          Says{"Abrir el analizador 'Spectral Zoom'", "'Spectral Zoom' Analyzer"},
          Tip{"'Spectral Zoom' Analyzer", "'Spectral Zoom' Analyzer"});
    place(Image3, keyAt(1, 0), "OpenN",
          SaysAndTip{"Abrir la respuesta a frecuencia", "Open the frequency response"});
    // The switch is below the key of the analysis that it arms.
    place(Image5, keyAt(1, 1), "OffN",
          SaysAndTip{"Armar la medición de respuesta a frecuencia",
                     "Arm the frequency response measurement"});
    place(Image4, keyAt(1, 2), "LogN",
          SaysAndTip{"Abrir la performance On-Air", "Open the on-air performance"});
    place(KeyHistory, namedKeyAt(0), "HistoryN", Caption{"HISTORIAL", "HISTORY"},
          SaysAndTip{"Abrir el historial de todas las cifras (F3)",
                     "Open the history of all figures (F3)"})
        .shortcut = "F3";
    place(KeyLimits, namedKeyAt(2), "MinN", Caption{"LIMITES", "LIMITS"},
          SaysAndTip{"Editar los límites de las medidas", "Edit the limits of the figures"});
    const auto word = [](Label& label, int column, int line, const Words& words) {
        place(label, besideKey(column, line), look::kPlainText, words);
    };
    word(Label_SpectrumAnalyzer, 0, 0, {"Analizador de espectro", "Spectrum analyzer"});
    word(Label_bandScanner, 0, 1, {"Scanner de banda", "Band scanner"});
    word(Label_SpectralZoom, 0, 2, {"Spectral Zoom", "Spectral Zoom"});
    word(Label_FrequencyResponse, 1, 0, {"Respuesta a frecuencia", "Frequency response"});
    word(Label_ResponseSwitch, 1, 1, {"Armar la respuesta", "Arm the response"});
    word(Label_OnAirPerformance, 1, 2, {"Performance On-Air", "On-Air performance"});
}

void Form_D::layOutFigures() {
    auto figure = [y = 230.f](Label& label, const char* words, TextField& field,
                              const Words& says) mutable {
        constexpr TextStyle kFigure{{150, Weight::Bold}, kCyan, Align::Right};
        place(label, {9120, y + 40, 1300, 170}, look::kPlainText, words);
        place(field, {10460, y, 1180, 240}, kFigure, Says{says},
              Tip{"De normal.hm, que se lee cada minuto; no se cambia aquí",
                  "From normal.hm, which is read every minute; not changed here"})
            .locked = true;
        y += 258;
    };
    figure(Label_RadiatedPower, "Radiated Power:", Text1, {"Potencia radiada", "Radiated power"});
    figure(Label_MaxModulation, "Max. Modulation:", Text2,
           {"Modulación máxima", "Max. modulation"});
    figure(Label_3secSilence, "3 sec. silence:", Text3,
           {"Silencios de 3 segundos", "3 second silences"});
    figure(Label_InvertedPhase, "Inverted phase:", Text4, {"Fase invertida", "Inverted phase"});
}

}  // namespace hmonitor
