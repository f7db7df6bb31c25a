// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form_modo_demo.h"

#include <string>

#include "program/look.h"
#include "program/make_form.h"
#include "startup/breakable.h"

namespace hmonitor {

namespace {

/// The boxes of the texts and of the sentence about the driver library, which has four lines for a
/// long path.
constexpr float kWordsTop = 240;
constexpr float kReasonTop = 900;
constexpr float kReasonHeight = 600;

}  // namespace

FormModoDemo::FormModoDemo(Program& itsProgram) : ProgramForm(itsProgram, "FormModoDemo") {
    Command1.onClick = [this] {
        answer_ = kDemo;
        driver.HM_DemoMode();
        hide();
    };
    Command2.onClick = [this] { hide(); };
}

void FormModoDemo::onLoad() {
    answer_ = kExit;
    tellLibraryFault();
}

void FormModoDemo::tellLibraryFault() {
    const LibraryFault& fault = program.LibraryFault;
    const std::string& sentence =
        language == display::Language::Spanish ? fault.spanish : fault.english;
    if (sentence.empty()) return;
    Reason.caption = breakable(sentence);
    Reason.visible = true;
    // The texts move up to make room for it.
    for (display::Label* words : {&Label1, &Label2}) {
        words->top = kWordsTop;
        words->height = kReasonTop - kWordsTop;
    }
}

void FormModoDemo::layOut() {
    using namespace display;
    constexpr TextStyle kWords{{150}, look::kScaleColour};
    constexpr TextStyle kReason{{115}, look::kNoticeColour};
    language = program.words.gLanguage == "ES" ? Language::Spanish : Language::English;
    layWindow(5600, 2300, "HMonitor", Faceplate);
    place(Label1, {360, 360, 4880, 1000}, kWords,
          "El software no encuentra al HM-16. Revise las conexiones RS232 y asegurese de usar el "
          "port serie correcto (consulte al manual).");
    place(Label2, {360, 360, 4880, 1000}, kWords,
          "HM16 unit is not present. Please check RS232 connection. Be sure to use the correct "
          "port #; see the Manual.");
    place(Reason, {360, kReasonTop, 4880, kReasonHeight}, kReason, Hidden{});
    (language == Language::Spanish ? Label2 : Label1).visible = false;
    for (Label* label : {&Label1, &Label2, &Reason}) label->wraps = true;
    place(Command1, {1200, 1580, 1500, 400}, Words{"Modo Demo", "Demo Mode"}, Role::Default,
          Says{"Seguir en modo demo, sin unidad", "Go on in demo mode, without a unit"});
    place(Command2, {2900, 1580, 1500, 400}, Words{"Salir", "Exit"}, Role::Cancel,
          Says{"Salir del programa", "Leave the program"});
    tabOrder(Command1, Command2);
}

template MadeForm makeForm(Program&, Slot<FormModoDemo>&);

}  // namespace hmonitor
