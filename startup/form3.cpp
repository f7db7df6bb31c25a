// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form3.h"

#include "program/look.h"
#include "program/make_form.h"

namespace hmonitor {

Form3::Form3(Program& itsProgram) : ProgramForm(itsProgram, "Form3") {}

void Form3::layOut() {
    // As high as the three panels that replace it, so that the rack does not jump.
    layWindow(look::kRackWidth, 4960, "", Faceplate);
    place(Label1, {0, 2300, look::kRackWidth, 360}, "Please, Wait Loading...",
          display::TextStyle{look::kSmallReadout, look::kScaleColour, display::Align::Centre});
}

template MadeForm makeForm(Program&, Slot<Form3>&);

}  // namespace hmonitor
