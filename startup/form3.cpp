// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/form3.h"

#include "core/look.h"

namespace hmonitor {

Form3::Form3(Program& itsProgram) : ProgramForm(itsProgram, "Form3") {}

void Form3::layOut() {
    // As high as the three panels that take its place, so that the rack does not jump.
    width = look::kRackWidth;
    height = 4960.f;
    place(Faceplate, {0, 0, look::kRackWidth, 4960}).surface = display::Surface::Faceplate;
    place(Label1, {0, 2300, look::kRackWidth, 360}).caption = "Please, Wait Loading...";
    Label1.font = look::kSmallReadout;
    Label1.align = display::Align::Centre;
    Label1.colour = look::kScaleColour;
}

}  // namespace hmonitor
