// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/look.h"

#include <chrono>

#include "spectrum/form_d1.h"

namespace hmonitor {

using namespace display;

void Form_D1::layOut() {
    // The width is needed for the unit after the last column; the table has room for the 33 rows of
    // the longest span.
    constexpr float kBars = 9600;
    constexpr float kTable = 1150;
    constexpr float kHeight = 6300;
    constexpr float kTop = look::kTitleStrip + 40;
    constexpr float kKeys = kTop + kHeight + look::kWindowMargin;
    constexpr Box kBarsBox{look::kWindowMargin, kTop, kBars, kHeight};
    constexpr Box kTableBox{2 * look::kWindowMargin + kBars, kTop, kTable, kHeight};

    layWindow(3 * look::kWindowMargin + kBars + kTable,
              kKeys + look::kKeyHeight + look::kWindowMargin, "Spectrum", Faceplate);
    layTitle(SSPanel1, Label1, "Channel Spectrum", &Refused, &Station);
    Label1.colour = kWhite;
    place(Sheet1, kBarsBox, Surface::Sheet);
    // There are 240 units for the label "-50" beside the grid.
    place(Picture1, kBarsBox, Says{"Espectro del canal", "Channel spectrum"}).drawing.fontPoints =
        6.75f;
    place(Sheet2, kTableBox, Surface::Sheet);
    // Six characters of an offset must end before the values begin.
    place(Picture2, kTableBox,
          Says{"Valores en dB bajo la portadora", "Values in dB below the carrier"})
        .drawing.fontPoints = 6.5f;

    place(Command3D1, {150, kKeys, 2200, look::kKeyHeight}, "&New Run", Role::Default,
          Says{"Medir de nuevo", "Measure again"});
    place(Command3D2, {2500, kKeys, 2200, look::kKeyHeight}, "&Cancel", Role::Cancel,
          Says{"Cerrar el espectro", "Close the spectrum"});
    place(SSCommand2, {6450, kKeys, 2200, look::kKeyHeight}, "Mod. Bandwidth",
          Says{"Ancho de banda de modulación", "Modulation bandwidth"});
    place(SSCommand1, {8800, kKeys, 2200, look::kKeyHeight}, "Print Mode",
          Says{"Página para imprimir", "Page to print"});
    tabOrder(Command3D1, Command3D2, SSCommand2, SSCommand1, Picture1);

    Timer1.interval = std::chrono::milliseconds(9000);
    Timer1.enabled = true;
}

}  // namespace hmonitor
