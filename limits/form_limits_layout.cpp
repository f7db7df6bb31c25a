// SPDX-License-Identifier: GPL-3.0-or-later
#include "limits/form_limits.h"
#include "program/language.h"
#include "program/look.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kFormWidth = 8400;
constexpr float kFormLeft = 300;
constexpr float kListWidth = 4300;
constexpr float kRuleLeft = 4900;
constexpr float kRuleWidth = kFormWidth - kFormLeft - kRuleLeft;
constexpr float kEntryHeight = 330;
constexpr float kNumberWidth = 1000;
constexpr TextStyle kEntryText{{140}};

}  // namespace

void FormLimits::layOut() {
    language = panelLanguage(desktop().userLanguageId());
    const bool spanish = language == Language::Spanish;
    layWindow(kFormWidth, 4900, spanish ? "Límites de las medidas" : "Limits of the figures",
              Faceplate);
    layOutList();
    layOutRule();
    layOutKeys();
    tabOrder(Rules, FigureBox, KindBox, Lowest, Highest, Holds, Release, Warning, Alarm, KeyNew,
             KeyDelete, KeyUsual, KeyAccept, KeyCancel);
}

void FormLimits::layOutList() {
    place(RulesCaption, {kFormLeft, 220, kListWidth, 160}, look::kCaptionText,
          Words{"Reglas", "Rules"});
    place(Rules, {kFormLeft, 420, kListWidth, 2900}, Says{"Reglas", "Rules"},
          Tip{"Cada regla dice qué valores de una medida están fuera de límite",
              "Each rule says which values of a figure are beyond its limit"});
}

void FormLimits::layOutRule() {
    const auto word = [](Label& label, float x, float y, const Words& words) {
        place(label, {x, y, 1500, 160}, look::kCaptionText, words);
    };
    word(FigureCaption, kRuleLeft, 220, {"Medida", "Figure"});
    place(FigureBox, {kRuleLeft, 420, kRuleWidth, kEntryHeight}, Says{"Medida", "Figure"},
          Tip{"La medida que se vigila", "The figure that is watched"});
    word(KindCaption, kRuleLeft, 860, {"Fuera de límite", "Beyond the limit"});
    place(KindBox, {kRuleLeft, 1060, 1500, kEntryHeight},
          Says{"Fuera de límite", "Beyond the limit"},
          Tip{"Qué valores están fuera de límite", "Which values are beyond the limit"});

    constexpr float kSecond = kRuleLeft + 1650;
    const auto number = [&](Label& label, TextField& field, Label& unit, float x, float y,
                            const Words& words, const Words& tip) {
        word(label, x, y, words);
        place(field, {x, y + 200, kNumberWidth, kEntryHeight}, kEntryText.right(), Says{words},
              Tip{tip})
            .maxLength = 9;
        place(unit, {x + kNumberWidth + 60, y + 290, 480, 160}, look::kUnitText);
    };
    number(LowestCaption, Lowest, BoundUnit[0], kRuleLeft, 1500, {"Límite inferior", "Lower limit"},
           {"Por debajo está fuera de límite", "Below it is beyond the limit"});
    number(HighestCaption, Highest, BoundUnit[1], kSecond, 1500, {"Límite superior", "Upper limit"},
           {"Por encima está fuera de límite", "Over it is beyond the limit"});
    number(HoldsCaption, Holds, SecondsUnit[0], kRuleLeft, 2140, {"Avisa tras", "Told after"},
           {"Segundos seguidos fuera de límite hasta que se avisa; 0, en el acto",
            "Seconds on end beyond the limit until it is told; 0, at once"});
    number(ReleaseCaption, Release, SecondsUnit[1], kSecond, 2140, {"Cesa tras", "Over after"},
           {"Segundos seguidos dentro del límite hasta que cesa el aviso",
            "Seconds on end within the limit until it is over"});
    for (Label& unit : SecondsUnit) unit.caption = "s";

    word(SeverityCaption, kRuleLeft, 2780, {"Marco", "Frame"});
    place(Severity, {kRuleLeft, 2960, kRuleWidth, 360});
    place(Warning, {0, 0, 1550, 330}, &Severity, Words{"Aviso (ámbar)", "Warning (amber)"},
          Says{"Aviso, marco ámbar", "Warning, amber frame"},
          Tip{"Marco ámbar y la palabra ALTO o BAJO", "Amber frame and the word HIGH or LOW"});
    place(Alarm, {1650, 0, 1500, 330}, &Severity, Words{"Alarma (rojo)", "Alarm (red)"},
          Says{"Alarma, marco rojo", "Alarm, red frame"},
          Tip{"Marco rojo y la palabra ¡ALTO! o ¡BAJO!", "Red frame and the word HIGH! or LOW!"});
}

void FormLimits::layOutKeys() {
    constexpr float kKeyWidth = (kListWidth - 240) / 3;
    constexpr float kStep = kKeyWidth + 120;
    constexpr float kTop = 3440;
    place(KeyNew, {kFormLeft, kTop, kKeyWidth, look::kKeyHeight}, Words{"Nueva", "New"},
          SaysAndTip{"Añadir una regla", "Add a rule"});
    place(KeyDelete, {kFormLeft + kStep, kTop, kKeyWidth, look::kKeyHeight},
          Words{"Borrar", "Delete"}, SaysAndTip{"Borrar la regla", "Delete the rule"});
    place(KeyUsual, {kFormLeft + 2 * kStep, kTop, kKeyWidth, look::kKeyHeight},
          Words{"Habituales", "Usual"},
          SaysAndTip{"Volver a las reglas habituales", "Back to the usual rules"});
    place(Note, {kFormLeft, 4010, kFormWidth - 2 * kFormLeft, 180},
          look::kPlainText.in(look::kNoticeColour),
          Readout{"Qué falta para aceptar", "What is wrong"},
          Tip{"Qué falta para aceptar, o por qué no valen las reglas del archivo",
              "What is wrong with the rule, or why the file's rules do not hold"});
    constexpr float kWide = 1500;
    constexpr float kRight = kFormWidth - kFormLeft - kWide;
    place(KeyAccept, {kRight - kWide - 120, 4300, kWide, look::kKeyHeight},
          Words{"Aceptar", "Accept"}, Says{"Aceptar", "Accept"}, Role::Default,
          Tip{"Guarda las reglas en limits.ini y cierra",
              "Stores the rules in limits.ini and closes"});
    place(KeyCancel, {kRight, 4300, kWide, look::kKeyHeight}, Words{"Cancelar", "Cancel"},
          Says{"Cancelar", "Cancel"}, Role::Cancel,
          Tip{"Cierra sin cambiar nada", "Closes and changes nothing"});
}

}  // namespace hmonitor
