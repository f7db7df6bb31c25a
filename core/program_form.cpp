// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program_form.h"

#include "core/look.h"

namespace hmonitor {

void ProgramForm::placeDigit(SegmentDigit& digit, const display::Box& box, display::Panel* in,
                             display::Colour dark) {
    const auto strokes = SegmentDigit::strokes(box);
    for (int i = 0; i < 7; ++i) {
        const display::Box& ends = strokes[static_cast<std::size_t>(i)];
        display::Line& line =
            place(digit.segment(i), ends.left, ends.top, ends.right(), ends.bottom(), in);
        line.stroke = display::Stroke::Segment;
        // In units of 15 twips; a stroke is a seventh of the digit's height thick.
        line.thickness = box.height / 7 / 15;
    }
    digit.blank(dark);
}

void ProgramForm::placeSign(PanelSign& sign, float down,
                            std::initializer_list<const display::Panel*> wells) {
    auto veil = sign.veils.begin();
    for (const display::Panel* well : wells) {
        place(*veil, {well->left, well->top, well->width, well->height}).surface =
            display::Surface::Veil;
        veil->visible = false;
        ++veil;
    }
    place(sign.words, {9120, down, 1500, 180}).picture = "Sign";
    sign.words.visible = false;
    sign.words.says = {"Estado de los datos", "State of the data"};
    sign.words.tip = {
        "DEMO: valores simulados. SIN DATOS: la unidad no dice nada nuevo desde hace esos segundos",
        "DEMO: made-up values. NO DATA: the unit has said nothing new for so many seconds"};
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
