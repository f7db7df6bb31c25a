// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.h"
#include "program/look.h"
#include "tuner/form_b_tuner.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kWidth = 2900;
constexpr float kKeypadLeft = 240;
constexpr float kKeypadGap = 110;
constexpr float kKeypadInner = kWidth - 2 * kKeypadLeft;
constexpr float kKeyWidth = (kKeypadInner - 2 * kKeypadGap) / 3;
constexpr float kKeypadKeyHeight = 460;

/// The accessible names of the digit keys.
constexpr const char* kFigures[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};

constexpr Tip kDigitTip{"Añade esta cifra", "Appends this digit"};

/// The box of the key in a row and column of the pad, both from 0.
Box padBox(int row, int column) {
    return {kKeypadLeft + static_cast<float>(column) * (kKeyWidth + kKeypadGap),
            1300 + static_cast<float>(row) * (kKeypadKeyHeight + kKeypadGap), kKeyWidth,
            kKeypadKeyHeight};
}

}  // namespace

void Form_bTuner::layOut() {
    constexpr TextStyle kEntry{look::kReadout, kRed, Align::Right};
    constexpr TextStyle kHint{look::kScale, look::kCaptionColour, Align::Centre};
    layWindow(kWidth, 4360, "Remote Control", Faceplate);
    place(Label1, {kKeypadLeft, 200, kKeypadInner, 200}, look::kDialogText.in(look::kCaptionColour),
          "Remote Control");
    place(EntryWell, {kKeypadLeft, 500, kKeypadInner, 620}, Surface::Well);
    place(Text1, {100, 90, kKeypadInner - 200, 440}, &EntryWell, kEntry,
          Says{"Frecuencia sin punto, en décimas de MHz", "Frequency without point, tenths of MHz"},
          Tip{"981 es 98.1 MHz, 9815 es 98.15 MHz. Enter sintoniza",
              "981 is 98.1 MHz, 9815 is 98.15 MHz. Enter tunes"});
    place(Ring, {kKeypadLeft - 30, 470, kKeypadInner + 60, 680}, "AmberRing", Hidden{},
          SaysAndTip{"Estos dígitos no se pueden sintonizar", "These digits cannot be tuned"});
    place(Hint, {kKeypadLeft, 1155, kKeypadInner, 130}, kHint, "875 ... 1080, 8755 = 87.55");

    for (int digit = 1; digit <= 9; ++digit) {
        place(digits[digit], padBox((digit - 1) / 3, (digit - 1) % 3), wholeText(digit), kDigitTip,
              Says{kFigures[digit], kFigures[digit]});
    }
    place(SSCommand11, padBox(3, 0), "Cls", Says{"Borrar los dígitos", "Clear the digits"},
          Tip{"Borra los dígitos", "Clears the digits"});
    place(SSCommand13, padBox(3, 1), "0", Says{"0", "0"}, kDigitTip);
    place(SSCommand10, padBox(3, 2), "Enter", Role::Default, Says{"Sintonizar", "Tune"},
          Tip{"Sintoniza la frecuencia", "Tunes the frequency"});
    place(SSCommand12, {kKeypadLeft, 3660, kKeypadInner, kKeypadKeyHeight}, "Close", Role::Cancel,
          Says{"Cerrar", "Close"}, Tip{"Cierra el teclado", "Closes the keypad"});
    tabOrder(Text1, digits, SSCommand11, SSCommand13, SSCommand10, SSCommand12);
    // The keys do not take the focus, so that clicking and typing digits can be mixed.
    for (Key& key : digits) key.leavesFocus = true;
    for (Key* key : {&SSCommand11, &SSCommand13, &SSCommand10}) key->leavesFocus = true;
}

}  // namespace hmonitor
