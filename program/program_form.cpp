// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/program_form.h"

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "program/language.h"
#include "program/look.h"

namespace hmonitor {

using display::Hidden;
using display::Readout;
using display::Says;
using display::Surface;
using display::Tip;

void ProgramForm::layWindow(float itsWidth, float itsHeight, std::string_view itsCaption,
                            display::Panel& faceplate) {
    width = itsWidth;
    height = itsHeight;
    caption = itsCaption;
    place(faceplate, {0, 0, itsWidth, itsHeight}, Surface::Faceplate);
}

void ProgramForm::layStrip(display::Panel& strip) {
    place(strip, {0, 0, width, look::kTitleStrip}, Says{"Mover la ventana", "Move the window"});
}

void ProgramForm::layTitle(display::Panel& strip, display::Label& title, std::string_view words,
                           display::Label* note, display::Label* station) {
    constexpr float kBetween = 120;
    const float stationWidth = station ? look::kStationWidth + kBetween : 0;
    const float titleEnd = note ? look::kTitleWithNote : width - stationWidth;
    const float end = width - 240;
    layStrip(strip);
    place(title, look::titleBox(titleEnd), &strip, look::kTitleText, words);
    if (note) {
        place(*note, {titleEnd, 150, end - stationWidth - titleEnd, 200}, &strip, look::kNoteText,
              Readout{"Corrida rechazada por la unidad", "Run that the unit refused"});
    }
    if (!station) return;
    place(*station, {end - look::kStationWidth, 150, look::kStationWidth, 200}, &strip,
          look::kStationText,
          Readout{"Emisora sintonizada y hora de la corrida", "Tuned station and time of the run"},
          Tip{"Emisora sintonizada y hora de la corrida", "Tuned station and time of the run"});
}

void ProgramForm::layPanel(float itsHeight, display::Panel& faceplate, display::Label& heading,
                           float down, const display::Words& words) {
    language = panelLanguage(desktop().userLanguageId());
    layWindow(look::kRackWidth, itsHeight, "HMonitor", faceplate);
    place(heading, {8640, down, 3000, 160}, look::kHeadingText, words);
}

void ProgramForm::placeDigit(SegmentDigit& digit, const display::Box& box, display::Panel* in,
                             display::Colour dark) {
    const auto strokes = SegmentDigit::strokes(box);
    for (int i = 0; i < 7; ++i) {
        const display::Box& ends = strokes[static_cast<std::size_t>(i)];
        place(digit.segment(i), ends.left, ends.top, ends.right(), ends.bottom(), in,
              segmentStyle(box.height, dark));
    }
    digit.blank(dark);
}

void ProgramForm::placeSign(PanelSign& sign, float down,
                            std::initializer_list<const display::Panel*> wells) {
    auto veil = sign.veils.begin();
    for (const display::Panel* well : wells) {
        place(*veil++, well->boxInContainer(), Surface::Veil, Hidden{});
    }
    place(sign.words, {9120, down, 1500, 180}, "Sign", Hidden{},
          Says{"Estado de los datos", "State of the data"},
          Tip{"DEMO: valores simulados. SIN DATOS: la unidad no dice nada nuevo desde hace esos "
              "segundos",
              "DEMO: made-up values. NO DATA: the unit has said nothing new for so many seconds"});
}

void ProgramForm::tellIdleInDemo(display::Control& key) const {
    if (!inDemoMode()) return;
    key.tip = {"Sin función en modo demo: hace falta una unidad",
               "Does nothing in demo mode: it needs a unit"};
}

void ProgramForm::bindKey(display::Picture& key, const char* atRest, const char* pressed,
                          display::Event act) {
    key.onPress = [&key, pressed] { key.picture = pressed; };
    key.onCancel = [&key, atRest] { key.picture = atRest; };
    key.onRelease = [&key, atRest, act = std::move(act)] {
        key.picture = atRest;
        act();
    };
}

template <class Forms>
void ProgramForm::follow(const display::Mouse& at, const Forms& moved) {
    if (!at.left) {
        grippedX_ = at.x;
        grippedY_ = at.y;
        return;
    }
    const float dx = at.x - grippedX_;
    const float dy = at.y - grippedY_;
    for (display::Form* form : moved) {
        form->left = form->left + dx;
        form->top = form->top + dy;
    }
}

void ProgramForm::bindHandle(display::MouseEvent& down, display::MouseEvent& move,
                             std::vector<display::Form*> moved) {
    down = [this](const display::Mouse& at) {
        grippedX_ = at.x;
        grippedY_ = at.y;
    };
    move = [this, moved = std::move(moved)](const display::Mouse& at) { follow(at, moved); };
}

void ProgramForm::bindRackHandle(display::MouseEvent& down, display::MouseEvent& move) {
    bindHandle(down, move, {});
    move = [this](const display::Mouse& at) { follow(at, program.rack); };
}

}  // namespace hmonitor
