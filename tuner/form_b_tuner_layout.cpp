// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/look.h"
#include "core/numbers.h"
#include "tuner/form_b_tuner.h"

namespace hmonitor {

using display::Key;
using display::Surface;

namespace {

constexpr float kWidth = 2900;
constexpr float kKeypadHeight = 4360;
constexpr float kKeypadLeft = 240;
constexpr float kKeypadGap = 110;
constexpr float kKeyWidth = (kWidth - 2 * kKeypadLeft - 2 * kKeypadGap) / 3;
constexpr float kKeypadKeyHeight = 460;

/// What the screen reader says of the digit keys.
constexpr const char* kFigures[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};

constexpr display::Words kDigitTip = {"Añade esta cifra", "Appends this digit"};

/// The box of the key in a row and column of the pad, both from 0.
display::Box padBox(int row, int column) {
    return {kKeypadLeft + static_cast<float>(column) * (kKeyWidth + kKeypadGap),
            1300 + static_cast<float>(row) * (kKeypadKeyHeight + kKeypadGap), kKeyWidth,
            kKeypadKeyHeight};
}

}  // namespace

void Form_bTuner::layOut() {
    width = kWidth;
    height = kKeypadHeight;
    caption = "Remote Control";
    place(Faceplate, {0, 0, kWidth, kKeypadHeight}).surface = Surface::Faceplate;
    place(Label1, {kKeypadLeft, 200, kWidth - 2 * kKeypadLeft, 200}).caption = "Remote Control";
    Label1.font = display::Font{140};
    Label1.colour = look::kCaptionColour;
    place(EntryWell, {kKeypadLeft, 500, kWidth - 2 * kKeypadLeft, 620}).surface = Surface::Well;
    place(Text1, {100, 90, kWidth - 2 * kKeypadLeft - 200, 440}, &EntryWell).says = {
        "Frecuencia sin punto, en décimas de MHz", "Frequency without point, tenths of MHz"};
    place(Ring, {kKeypadLeft - 30, 470, kWidth - 2 * kKeypadLeft + 60, 680}).picture = "AmberRing";
    Ring.visible = false;
    Ring.says = {"Estos dígitos no se pueden sintonizar", "These digits cannot be tuned"};
    Ring.tip = Ring.says;
    place(Hint, {kKeypadLeft, 1155, kWidth - 2 * kKeypadLeft, 130}).caption =
        "875 ... 1080, 8755 = 87.55";
    Hint.font = look::kScale;
    Hint.colour = look::kCaptionColour;
    Hint.align = display::Align::Centre;
    Text1.tip = {"981 es 98.1 MHz, 9815 es 98.15 MHz. Enter sintoniza",
                 "981 is 98.1 MHz, 9815 is 98.15 MHz. Enter tunes"};
    Text1.colour = display::kRed;
    Text1.font = look::kReadout;
    Text1.align = display::Align::Right;
    Text1.tabIndex = 1;

    int tab = Text1.tabIndex;
    for (int digit = 1; digit <= digits.count(); ++digit) {
        Key& key = digits[digit];
        place(key, padBox((digit - 1) / 3, (digit - 1) % 3)).caption = wholeText(digit);
        key.says = {kFigures[digit], kFigures[digit]};
        key.tip = kDigitTip;
        key.tabIndex = ++tab;
        key.leavesFocus = true;
    }
    place(SSCommand11, padBox(3, 0)).caption = "Cls";
    SSCommand11.says = {"Borrar los dígitos", "Clear the digits"};
    SSCommand11.tip = {"Borra los dígitos", "Clears the digits"};
    place(SSCommand13, padBox(3, 1)).caption = "0";
    SSCommand13.says = {kFigures[0], kFigures[0]};
    SSCommand13.tip = kDigitTip;
    place(SSCommand10, padBox(3, 2)).caption = "Enter";
    SSCommand10.says = {"Sintonizar", "Tune"};
    SSCommand10.tip = {"Sintoniza la frecuencia", "Tunes the frequency"};
    SSCommand10.isDefault = true;
    place(SSCommand12, {kKeypadLeft, 3660, kWidth - 2 * kKeypadLeft, kKeypadKeyHeight}).caption =
        "Close";
    SSCommand12.says = {"Cerrar", "Close"};
    SSCommand12.tip = {"Cierra el teclado", "Closes the keypad"};
    SSCommand12.isCancel = true;
    for (Key* key : {&SSCommand11, &SSCommand13, &SSCommand10, &SSCommand12}) {
        key->tabIndex = ++tab;
    }
    // Clicked digits and typed ones may follow each other.
    for (Key* key : {&SSCommand11, &SSCommand13, &SSCommand10}) key->leavesFocus = true;
}

}  // namespace hmonitor
