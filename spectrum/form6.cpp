// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form6.h"

#include "display/number_table.h"
#include "program/make_form.h"

namespace hmonitor {

Form6::Form6(Program& itsProgram) : PictureSheet(itsProgram, "Form6") {
    Picture1B.numbers = [this] { return Picture1.numbers(); };
}

void Form6::layOut() {
    // As wide as the analyzer's window, whose view it also prints; the table is beside the bars, as
    // in the window of the channel spectrum.
    constexpr float kSheetWidth = 13500;
    constexpr float kPictureHeight = 6300;
    constexpr float kBars = 9600;
    constexpr float kLeft = 150;
    layOutSheet(kSheetWidth, kSheetBody + kPictureHeight + kSheetFoot, "Spectrum");
    placeHeading(Label7, "  Spectrum ");
    place(Picture1, {kLeft, kSheetBody, kBars, kPictureHeight}, &Sheet,
          display::Says{"Espectro", "Spectrum"});
    place(Picture1B, {2 * kLeft + kBars, kSheetBody, 1150, kPictureHeight}, &Sheet,
          display::Says{"Valores en dB bajo la portadora", "Values in dB below the carrier"});
}

template MadeForm makeForm(Program&, Slot<Form6>&);

}  // namespace hmonitor
