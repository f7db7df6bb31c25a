// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form_modo_demo.h"

#include "core/look.h"

namespace hmonitor {

namespace {

/// Where the words stand, and the sentence about the driver library: four lines, for a long path.
constexpr float kWordsTop = 240;
constexpr float kReasonTop = 900;
constexpr float kReasonHeight = 600;

/// A path has no blanks to break a line at: each part of it may end one.
std::string breakable(const std::string& sentence) {
    constexpr const char* kMayBreak = "\u200b";
    std::string text;
    for (const char character : sentence) {
        text += character;
        if (character == '/' || character == '\\') text += kMayBreak;
    }
    return text;
}

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
    const bool spanish = program.words.gLanguage == "ES";
    language = spanish ? display::Language::Spanish : display::Language::English;
    Label1.visible = spanish;
    Label2.visible = !spanish;
    tellLibraryFault();
    if (spanish) return;
    Command1.caption = "Demo Mode";
    Command2.caption = "Exit";
}

void FormModoDemo::tellLibraryFault() {
    const LibraryFault& fault = program.LibraryFault;
    const std::string& sentence =
        language == display::Language::Spanish ? fault.spanish : fault.english;
    if (sentence.empty()) return;
    Reason.caption = breakable(sentence);
    Reason.visible = true;
    // The words move up to give it room.
    for (display::Label* words : {&Label1, &Label2}) {
        words->top = kWordsTop;
        words->height = kReasonTop - kWordsTop;
    }
}

void FormModoDemo::layOut() {
    width = 5600.f;
    height = 2300.f;
    caption = "HMonitor";
    place(Faceplate, {0, 0, 5600, 2300}).surface = display::Surface::Faceplate;
    place(Label1, {360, 360, 4880, 1000}).caption =
        "El software no encuentra al HM-16. Revise las conexiones RS232 y asegurese de usar el "
        "port serie correcto (consulte al manual).";
    place(Label2, {360, 360, 4880, 1000}).caption =
        "HM16 unit is not present. Please check RS232 connection. Be sure to use the correct port "
        "#; see the Manual.";
    const auto likeWords = [](display::Label& words) {
        words.wraps = true;
        words.font = display::Font{150};
        words.colour = look::kScaleColour;
    };
    likeWords(Label1);
    likeWords(Label2);
    place(Reason, {360, kReasonTop, 4880, kReasonHeight});
    likeWords(Reason);
    Reason.font = display::Font{115};
    Reason.colour = look::kNoticeColour;
    Reason.visible = false;
    place(Command1, {1200, 1580, 1500, 400}).caption = "Modo Demo";
    place(Command2, {2900, 1580, 1500, 400}).caption = "Salir";
    Command1.says = {"Seguir en modo demo, sin unidad", "Go on in demo mode, without a unit"};
    Command2.says = {"Salir del programa", "Leave the program"};
    Command1.isDefault = true;
    Command2.isCancel = true;
    Command1.tabIndex = 1;
    Command2.tabIndex = 2;
}

}  // namespace hmonitor
