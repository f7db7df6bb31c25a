// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form_card.h"

#include "base/utf8_path.h"
#include "program/look.h"
#include "program/make_form.h"

namespace hmonitor {

FormCard::FormCard(Program& itsProgram) : ProgramForm(itsProgram, "FormCard") {
    KeyRead.onClick = [this] {
        unload();
        if (program.FirstStart.onRead) program.FirstStart.onRead();
    };
    Faceplate.onMouseDown = [this](const display::Mouse&) { KeyRead.press(); };
}

std::string FormCard::folderText() const {
    const bool spanish = language == display::Language::Spanish;
    return (spanish ? "Archivos: están en " : "Files: they are in ") +
           base::utf8Of(desktop().folder());
}

void FormCard::layOut() {
    using namespace display;
    constexpr float kCardWidth = 11300;
    constexpr float kCardHeight = 1300;
    constexpr float kLeft = 320;
    constexpr float kKeyWidth = 1300;
    constexpr float kWords = kCardWidth - kKeyWidth - 3 * kLeft;
    static constexpr TextStyle kText{{130}, look::kScaleColour};
    const bool spanish = program.words.gLanguage == "ES";
    language = spanish ? Language::Spanish : Language::English;
    // Without a frame: the card belongs to the rack.
    layWindow(kCardWidth, kCardHeight, "", Faceplate);
    place(Heading, {kLeft, 150, kWords, 220}, look::kTitleText,
          Words{"Para empezar", "To begin with"});
    const auto line = [this](int number, std::string_view words) {
        place(Line[number], {kLeft, 440 + 250 * static_cast<float>(number), kWords, 220}, kText,
              words);
    };
    line(0, spanish ? "Teclas: 1 a 9 y 0 sintonizan las memorias; Tab y las flechas recorren el "
                      "rack; F11 ocupa toda la pantalla."
                    : "Keys: 1 to 9 and 0 tune the memories; Tab and the arrows go over the rack; "
                      "F11 takes the whole screen.");
    line(1, spanish ? "Ayuda: F1 abre el manual en la ventana donde se está."
                    : "Help: F1 opens the manual at the window where you are.");
    line(2, folderText());
    place(KeyRead, {kCardWidth - kLeft - kKeyWidth, 440, kKeyWidth, look::kKeyHeight},
          Words{"Entendido", "Got it"}, Says{"Entendido", "Got it"}, Role::Default,
          Tip{"Cierra esta tarjeta para siempre", "Closes this card for good"})
        .isCancel = true;
    place(Rim, {0, 0, kCardWidth, kCardHeight}, "AmberRing");
    tabOrder(KeyRead);
}

template MadeForm makeForm(Program&, Slot<FormCard>&);

}  // namespace hmonitor
