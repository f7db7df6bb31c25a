// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form_wait_load.h"

#include <cmath>
#include <numbers>
#include <string>

#include "panels/modulation/form1.h"
#include "program/language.h"
#include "program/look.h"
#include "program/make_form.h"
#include "startup/breakable.h"

namespace hmonitor {

namespace {

using namespace std::chrono_literals;

constexpr display::Colour kRingRest{0x9c010d};
constexpr display::Colour kRingLit{0xff0000};

}  // namespace

Form_WaitLoad::Form_WaitLoad(Program& itsProgram) : ProgramForm(itsProgram, "Form_WaitLoad") {
    Timer1.onTick = [this] { turnRing(); };
    Timer2.onTick = [this] { openDriver(); };
}

void Form_WaitLoad::onLoad() {
    program.words.gBrand = Check1.checked ? "Marvenia" : "Teskel";
    program.words.gModel = "TK-16";
    ring_ = -1;

    const bool spanish = primaryLanguage(desktop().userLanguageId()) == kSpanishId;
    program.words.gLanguage = spanish ? "ES" : "IN";
    language = spanish ? display::Language::Spanish : display::Language::English;

    tellFirstFolder();

    if (program.words.gBrand == "Marvenia") {
        Logo1.picture = Logo2.picture.get();
        Logo1.left = 440.f;
    }
}

void Form_WaitLoad::tellFirstFolder() {
    const std::string& path = program.FirstFolder.path;
    if (path.empty()) return;
    Folder.caption =
        std::string(wordsIn(language, {"Sus archivos están en ", "Your files are in "})) +
        breakable(path);
    Folder.visible = true;
    // Long enough to be read, this one time.
    Timer2.interval = 4s;
}

void Form_WaitLoad::turnRing() {
    ring_ = ring_ == kShapes ? 1 : ring_ + 1;
    for (int i = 1; i <= kShapes; ++i) {
        Shape1[static_cast<std::size_t>(i - 1)].colour = i == ring_ ? kRingLit : kRingRest;
    }
}

void Form_WaitLoad::openDriver() {
    Timer2.enabled = false;
    program.words.gModel = "HMonitor";
    driver.HM_Init();
    program.Form1->show();
    hide();
    unload();
}

void Form_WaitLoad::layOut() {
    using namespace display;
    layWindow(5600, 2600, "HMonitor", Faceplate);
    place(Check1, {0, 0, 10, 10}, "Marvenia", Says{"Marca", "Brand"}, Hidden{}).checked =
        program.Brand == Brand::Marvenia;
    place(Logo1, {620, 500, 3200, 520}, "LogoTeskel");
    place(Logo2, {620, 500, 3200, 520}, "LogoMarvenia", Hidden{});
    place(Label1, {440, 1700, 2800, 300}, TextStyle{{170}, look::kScaleColour}, "Please wait,");
    place(Folder, {440, 2030, 4720, 450}, TextStyle{{110}, look::kScaleColour}, Hidden{}).wraps =
        true;
    for (int i = 0; i < kShapes; ++i) {
        const double turn = 2 * std::numbers::pi * i / kShapes;
        const auto x = static_cast<float>(4500 + 420 * std::sin(turn));
        const auto y = static_cast<float>(1400 - 420 * std::cos(turn));
        place(Shape1[i], {x - 60, y - 60, 120, 120}, Fill{kRingRest, kBlack, Outline::Oval});
    }
    Timer1.interval = 62ms;
    Timer1.enabled = true;
    Timer2.interval = 100ms;
    Timer2.enabled = true;
}

template MadeForm makeForm(Program&, Slot<Form_WaitLoad>&);

}  // namespace hmonitor
