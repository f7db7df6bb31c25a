// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"

namespace hmonitor {

Form_D::Form_D(Program& itsProgram) : ProgramForm(itsProgram, "Form_D") {}

void Form_D::spect() {}
void Form_D::respo() {}
void Form_D::resborra() {}

void Form_D::layOut() {
    width = 12000;
    height = 1340;
    place(Image5, {3000, 600, 640, 300}).picture = "OffN";
    place(Text1, {10800, 160, 900, 240});
    place(Text2, {10800, 420, 900, 240});
    place(Text3, {10800, 680, 900, 240});
    place(Text4, {10800, 940, 900, 240});
}

}  // namespace hmonitor
