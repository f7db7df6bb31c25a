// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/window_look.h"
#include "spectrum/form_d1.h"

namespace hmonitor {

void Form_D1::layOut() {
    // The bars need the width for the unit behind the last column; the table has room for the 33
    // rows of the longest span.
    constexpr float kBars = 9600;
    constexpr float kTable = 1150;
    constexpr float kHeight = 6300;
    constexpr float kTop = look::kTitleStrip + 40;
    constexpr float kKeys = kTop + kHeight + look::kWindowMargin;

    width = 3 * look::kWindowMargin + kBars + kTable;
    height = kKeys + look::kKeyHeight + look::kWindowMargin;
    caption = "Spectrum";

    place(Faceplate, {0, 0, width, height}).surface = display::Surface::Faceplate;
    place(SSPanel1, {0, 0, width, look::kTitleStrip});
    place(Label1, look::titleBox(look::kTitleWithNote)).caption = "Channel Spectrum";
    Label1.font = look::kTitle;
    look::likeNote(place(Refused, look::noteBox(width)));
    place(Sheet1, {look::kWindowMargin, kTop, kBars, kHeight}).surface = display::Surface::Sheet;
    place(Picture1, {look::kWindowMargin, kTop, kBars, kHeight});
    Picture1.says = {"Espectro del canal", "Channel spectrum"};
    // "-50" has 240 units up to the grid.
    Picture1.drawing.fontPoints = 6.75f;
    place(Sheet2, {2 * look::kWindowMargin + kBars, kTop, kTable, kHeight}).surface =
        display::Surface::Sheet;
    place(Picture2, {2 * look::kWindowMargin + kBars, kTop, kTable, kHeight});
    Picture2.says = {"Valores en dB bajo la portadora", "Values in dB below the carrier"};
    // Six characters of an offset must end before the values begin.
    Picture2.drawing.fontPoints = 6.5f;

    place(Command3D1, {150, kKeys, 2200, look::kKeyHeight}).caption = "&New Run";
    Command3D1.isDefault = true;
    Command3D1.tabIndex = 1;
    Command3D1.says = {"Medir de nuevo", "Measure again"};
    place(Command3D2, {2500, kKeys, 2200, look::kKeyHeight}).caption = "&Cancel";
    Command3D2.isCancel = true;
    Command3D2.tabIndex = 2;
    Command3D2.says = {"Cerrar el espectro", "Close the spectrum"};
    place(SSCommand2, {6450, kKeys, 2200, look::kKeyHeight}).caption = "Mod. Bandwidth";
    SSCommand2.tabIndex = 3;
    SSCommand2.says = {"Ancho de banda de modulación", "Modulation bandwidth"};
    place(SSCommand1, {8800, kKeys, 2200, look::kKeyHeight}).caption = "Print Mode";
    SSCommand1.tabIndex = 4;
    SSCommand1.says = {"Página para imprimir", "Page to print"};

    Timer1.interval = std::chrono::milliseconds(9000);
    Timer1.enabled = true;
}

}  // namespace hmonitor
