// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/look.h"

#include <chrono>

#include "spectrum/form_d1a.h"

namespace hmonitor {

using namespace display;

void FormD1a::layOut() {
    // The width leaves room for the unit at the right; with this height a percent is 55 units.
    constexpr float kGraph = 10200;
    constexpr float kHeight = 6400;
    constexpr float kTop = look::kTitleStrip + 40;
    constexpr float kKeys = kTop + kHeight + look::kWindowMargin;
    constexpr Box kGraphBox{look::kWindowMargin, kTop, kGraph, kHeight};

    layWindow(2 * look::kWindowMargin + kGraph, kKeys + look::kKeyHeight + look::kWindowMargin,
              "Modulation Bandwidth", Faceplate);
    layTitle(SSPanel1, Heading, "Modulation Bandwidth", &Refused, &Station);
    Heading.colour = kWhite;
    place(Sheet1, kGraphBox, Surface::Sheet);
    place(Picture1, kGraphBox,
          Says{"Curva del ancho de banda de modulación", "Modulation bandwidth curve"});
    // There are 270 units for the label of 150 kHz up to the edge.
    Picture1.drawing.fontPoints = 7;

    place(Command3D1, {150, kKeys, 2200, look::kKeyHeight}, "Run", Role::Default,
          Says{"Medir o parar", "Run or stop"});
    place(Command3D2, {2500, kKeys, 2200, look::kKeyHeight}, "&Back", Role::Cancel,
          Says{"Cerrar y volver a medir la emisora", "Close and measure the station again"});
    place(Command1, {5800, kKeys, 2200, look::kKeyHeight}, "&Test",
          Says{"Curva de prueba", "Test pattern"});
    place(SSCommand1, {8150, kKeys, 2200, look::kKeyHeight}, "Print Mode",
          Says{"Página para imprimir", "Page to print"});
    tabOrder(Command3D1, Command3D2, Command1, SSCommand1, Picture1);

    Timer1.interval = std::chrono::milliseconds(50);
}

}  // namespace hmonitor
