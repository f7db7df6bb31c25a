// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/language.h"

#include <algorithm>
#include <chrono>

#include "program/look.h"
#include "trends/form_history.h"
#include "trends/history_words.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kWidth = 13600;
constexpr float kHeight = 7200;
constexpr float kEdge = 240;

/// The plots' room: below the strip, between the figures and the values.
constexpr Box kPlots{2860, 540, 8920, 5830};
constexpr float kLeftInset = 640;
constexpr float kRightInset = 220;
constexpr float kPlotGap = 80;
/// What the lowest plot has more: the figures of the time axis.
constexpr float kTimeRoom = 270;
constexpr float kWellEdge = 25;
constexpr float kValuesLeft = kPlots.right() + 150;
constexpr float kValuesWidth = kWidth - kEdge - kValuesLeft;
constexpr float kKeyTop = 6600;

constexpr TextStyle kBigText{{250, Weight::Bold}, kWhite};

}  // namespace

void Form_History::layOut() {
    language = panelLanguage(desktop().userLanguageId());
    layWindow(kWidth, kHeight, in({"HISTORIAL", "HISTORY"}), Faceplate);
    layTitle(TitleStrip, Label_Title, in({"Historial", "History"}));
    layOutHead();
    layOutFigures();
    layOutPlots();
    layOutValues();
    layOutFoot();
    // The plots keep the keyboard: after a click + and - go on zooming.
    for (Key& key : Command_Span) key.leavesFocus = true;
    for (Key& key : Command_Set) key.leavesFocus = true;
    for (Key* key : {&Command_Now, &Command_Keep, &Command_Again}) key->leavesFocus = true;
    tabOrder(Plot_Figure, Command_Span, Command_Now, Combo_Station, Check_Figure, Command_Set,
             Command_Keep, Command_Export, Command_Again, Command_Close);
    TimerLive.interval = std::chrono::seconds(1);
}

void Form_History::layOutHead() {
    constexpr Words kSpanNames[] = {
        {"Hora", "Hour"}, {"Día", "Day"}, {"Semana", "Week"}, {"Mes", "Month"}, {"Año", "Year"}};
    constexpr Words kSpanTips[] = {{"Muestra una hora", "Shows an hour"},
                                   {"Muestra un día", "Shows a day"},
                                   {"Muestra una semana", "Shows a week"},
                                   {"Muestra treinta días", "Shows thirty days"},
                                   {"Muestra un año", "Shows a year"}};
    float x = kPlots.left;
    for (std::size_t i = 0; i < Command_Span.size(); ++i) {
        place(Command_Span[i], {x, 100, 820, 330}, kSpanNames[i], SaysAndTip{kSpanTips[i]});
        x += 860;
    }
    place(Command_Now, {x + 160, 100, 900, 330}, Words{"Ahora", "Now"},
          SaysAndTip{"Va hasta ahora y sigue con el tiempo", "Goes to now and follows the time"});
    place(Combo_Station, {kPlots.right() - 1700, 100, 1700, 330},
          SaysAndTip{"La emisora que se muestra", "The station that is shown"});
    place(Label_Known, {8250, 190, 1740, 180}, look::kCaptionText.right(),
          Readout{"Parte conocida del tiempo mostrado", "Known share of the time shown"},
          Tip{{"Cuánto del tiempo mostrado se conoce; el resto está rayado con su causa",
               "How much of the time shown is known; the rest is hatched by its cause"}});
}

void Form_History::layOutFigures() {
    constexpr float kStep = 256;
    place(Label_Figures, {kEdge, 560, 1800, 180}, look::kPlainText, Words{"Cifras", "Figures"});
    for (std::size_t i = 0; i < figures::kCount; ++i) {
        const float y = 790 + kStep * static_cast<float>(i);
        const figures::Figure& figure = figures::all()[i];
        const Words name{figure.name.spanish, figure.name.english};
        place(Swatch[i], {kEdge, y + 45, 60, 170}, Fill{kCyan}, Hidden{});
        place(Check_Figure[i], {kEdge + 100, y, 2480, 250}, name, Says{name},
              Tip{figure.definition.spanish, figure.definition.english});
    }
    place(Label_Sets, {kEdge, 5990, 1800, 180}, look::kPlainText, Words{"Conjuntos", "Sets"});
    for (std::size_t i = 0; i < FigureChoice::kSets; ++i) {
        constexpr const char* kNumbers[] = {"1", "2", "3", "4"};
        place(Command_Set[i], {kEdge + 320 * static_cast<float>(i), 6190, 300, 300}, kNumbers[i],
              SaysAndTip{"Muestra las cifras de este conjunto", "Shows the figures of this set"});
    }
    place(Command_Keep, {kEdge + 1320, 6190, 860, 300}, Words{"Guardar", "Keep"},
          SaysAndTip{"Guarda las cifras mostradas en el conjunto que se pulse después",
                     "Keeps the figures shown in the set that is pressed next"});
}

void Form_History::layOutPlots() {
    for (std::size_t i = 0; i < FigureChoice::kMost; ++i) {
        place(Well[i], kPlots, Surface::Well);
        place(Plot_Figure[i], {kWellEdge, kWellEdge, 100, 100}, &Well[i],
              Says{"Curva del historial", "Curve of the history"});
        Plot_Figure[i].causes(causeColours());
        Plot_Figure[i].clock(machineClock(desktop()));
        Plot_Figure[i].pictureBox = {kPlots.left, kPlots.top, kPlots.width, kPlots.height + 130};
    }
    const float begin = kPlots.left + kWellEdge + kLeftInset;
    const float each =
        (kPlots.width - 2 * kWellEdge - kLeftInset - kRightInset) / static_cast<float>(kParts);
    for (std::size_t i = 0; i < kParts; ++i) {
        place(Part[i],
              {begin + each * static_cast<float>(i) + 8, kPlots.bottom() + 35, each - 16, 75},
              Fill{kBlack},
              Tip{"Cada parte del tiempo: verde buena, ámbar fuera de límites, gris desconocida",
                  "Each part of the time: green good, amber beyond a bound, grey unknown"});
    }
    sharePlots();
}

void Form_History::sharePlots() {
    const std::size_t count = std::max<std::size_t>(choice_.shown().size(), 1);
    const float parts = static_cast<float>(count);
    const float each = (kPlots.height - kTimeRoom - kPlotGap * (parts - 1)) / parts;
    float y = kPlots.top;
    for (std::size_t i = 0; i < FigureChoice::kMost; ++i) {
        Well[i].visible = i < count;
        const bool last = i + 1 == count;
        const float high = each + (last ? kTimeRoom : 0);
        Well[i].top = i < count ? y : kPlots.top;
        Well[i].height = i < count ? high : kPlots.height;
        Plot_Figure[i].width = kPlots.width - 2 * kWellEdge;
        Plot_Figure[i].height = Well[i].height - 2 * kWellEdge;
        Plot_Figure[i].insets =
            Plot::Insets{kLeftInset, 260, kRightInset, last ? kTimeRoom + 60 : 90};
        y += high + kPlotGap;
    }
}

void Form_History::layOutValues() {
    place(Label_Time, {kValuesLeft, 560, kValuesWidth, 290}, kBigText,
          Readout{"Hora de la marca", "Time of the mark"},
          Tip{{"La hora bajo la marca", "The time under the mark"}});
    place(Label_Date, {kValuesLeft, 860, kValuesWidth, 180}, look::kCaptionText);
    place(Label_Between, {kValuesLeft, 1060, kValuesWidth, 180}, look::kNoteText.in(kWhite));
    Label_Between.align = Align::Left;
    for (std::size_t i = 0; i < FigureChoice::kMost; ++i) {
        const float y = 1370 + 770 * static_cast<float>(i);
        place(Label_Value[i], {kValuesLeft, y, kValuesWidth, 290}, kBigText,
              Readout{"Valor en la marca", "Value at the mark"},
              Tip{{"La media en la marca; debajo, del menor al mayor",
                   "The mean at the mark; below, from lowest to highest"}});
        place(Label_Band[i], {kValuesLeft, y + 300, kValuesWidth, 180}, look::kCaptionText);
        place(Label_Step[i], {kValuesLeft, y + 490, kValuesWidth, 180}, look::kCaptionText);
    }
    for (std::size_t i = 0; i < kCauses; ++i) {
        const float y = 4560 + 230 * static_cast<float>(i);
        place(CauseSwatch[i], {kValuesLeft, y + 20, 150, 150}, Fill{kWhite}, Hidden{});
        place(Label_Cause[i], {kValuesLeft + 210, y, kValuesWidth - 210, 190}, look::kCaptionText);
    }
}

void Form_History::layOutFoot() {
    place(Command_Export, {kEdge, kKeyTop, 1500, look::kKeyHeight}, Words{"Exportar", "Export"},
          SaysAndTip{"Guarda lo mostrado: imagen, dibujo, números o página",
                     "Saves what is shown: picture, drawing, numbers or page"});
    place(Command_Again, {kEdge + 1560, kKeyTop, 2500, look::kKeyHeight},
          Words{"Mismo día, semana anterior", "Same day last week"},
          SaysAndTip{"Compara con los mismos momentos de siete días antes",
                     "Compares with the same moments seven days earlier"});
    place(Label_Hint, {4500, kKeyTop + 125, 7200, 180}, look::kCaptionText,
          Words{"Rueda: acercar · Arrastrar: mover · Clic: marca · Mayús+clic: segunda marca",
                "Wheel: zoom · Drag: move · Click: mark · Shift+click: second mark"});
    place(Command_Close, {kWidth - kEdge - 1500, kKeyTop, 1500, look::kKeyHeight},
          Words{"Cerrar", "Close"}, Role::Cancel, Says{"Cerrar", "Close"});
}

}  // namespace hmonitor
