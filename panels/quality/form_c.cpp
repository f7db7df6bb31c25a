// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/quality/form_c.h"

namespace hmonitor {

Form_C::Form_C(Program& itsProgram) : ProgramForm(itsProgram, "Form_C") {}

void Form_C::Command1() {}
void Form_C::Command4() {}
void Form_C::Command6() {}
void Form_C::Command11() {}
void Form_C::Command13() {}

void Form_C::layOut() {
    width = 12000;
    height = 1260;
}

}  // namespace hmonitor
