// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form_modo_demo.h"

#include "core/look.h"

namespace hmonitor {

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
    if (spanish) return;
    Command1.caption = "Demo Mode";
    Command2.caption = "Exit";
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
