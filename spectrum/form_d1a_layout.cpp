// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/window_look.h"
#include "spectrum/form_d1a.h"

namespace hmonitor {

void FormD1a::layOut() {
    // The width leaves room for the unit at the right; the height makes a percent 55 units.
    constexpr float kGraph = 10200;
    constexpr float kHeight = 6400;
    constexpr float kTop = look::kTitleStrip + 40;
    constexpr float kKeys = kTop + kHeight + look::kWindowMargin;

    width = 2 * look::kWindowMargin + kGraph;
    height = kKeys + look::kKeyHeight + look::kWindowMargin;
    caption = "Modulation Bandwidth";

    place(Faceplate, {0, 0, width, height}).surface = display::Surface::Faceplate;
    place(SSPanel1, {0, 0, width, look::kTitleStrip});
    place(Heading, look::titleBox(look::kTitleWithNote)).caption = "Modulation Bandwidth";
    Heading.font = look::kTitle;
    look::likeNote(place(Refused, look::noteBox(width)));
    place(Sheet1, {look::kWindowMargin, kTop, kGraph, kHeight}).surface = display::Surface::Sheet;
    place(Picture1, {look::kWindowMargin, kTop, kGraph, kHeight});
    Picture1.says = {"Curva del ancho de banda de modulación", "Modulation bandwidth curve"};
    // The label of 150 kHz has 270 units up to the edge.
    Picture1.drawing.fontPoints = 7;

    place(Command3D1, {150, kKeys, 2200, look::kKeyHeight}).caption = "Run";
    Command3D1.isDefault = true;
    Command3D1.tabIndex = 1;
    Command3D1.says = {"Medir o parar", "Run or stop"};
    place(Command3D2, {2500, kKeys, 2200, look::kKeyHeight}).caption = "&Back";
    Command3D2.isCancel = true;
    Command3D2.tabIndex = 2;
    Command3D2.says = {"Cerrar y volver a medir la emisora", "Close and measure the station again"};
    place(Command1, {5800, kKeys, 2200, look::kKeyHeight}).caption = "&Test";
    Command1.tabIndex = 3;
    Command1.says = {"Curva de prueba", "Test pattern"};
    place(SSCommand1, {8150, kKeys, 2200, look::kKeyHeight}).caption = "Print Mode";
    SSCommand1.tabIndex = 4;
    SSCommand1.says = {"Página para imprimir", "Page to print"};

    Timer1.interval = std::chrono::milliseconds(50);
}

}  // namespace hmonitor
