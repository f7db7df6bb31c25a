// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/form_d1ap.h"

#include "program/make_form.h"

namespace hmonitor {

FormD1aP::FormD1aP(Program& itsProgram) : PictureSheet(itsProgram, "FormD1aP") {}

void FormD1aP::layOut() {
    constexpr float kGraphWidth = 10200;
    constexpr float kGraphHeight = 6400;
    layOutSheet(kGraphWidth + 2 * kSheetMargin, kSheetBody + kGraphHeight + kSheetFoot,
                "Modulation Bandwidth");
    placeHeading(Label7, "  Modulation Bandwidth ");
    place(Picture1, {kSheetMargin, kSheetBody, kGraphWidth, kGraphHeight}, &Sheet,
          display::Says{"Curva del ancho de banda de modulación", "Modulation bandwidth curve"});
}

template MadeForm makeForm(Program&, Slot<FormD1aP>&);

}  // namespace hmonitor
