// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/forms.h"

#include "analyses/form_d.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"

namespace hmonitor {

Forms::Made::Made(Program& program, Brand brand) {
    program.Brand = brand;
#define HMONITOR_MAKE(form, name) forms_.push_back(makeForm(program, program.form));
    HMONITOR_EACH_FORM(HMONITOR_MAKE)
#undef HMONITOR_MAKE
    program.rack = {&program.Form1.peek(), &program.Form_B.peek(), &program.Form_C.peek(),
                    &program.Form_D.peek()};
}

Forms::Made::~Made() {
    while (!forms_.empty()) forms_.pop_back();
}

Forms::Forms(Program& program, Brand brand)
    : tuner(program),
      made_(program, brand)
#define HMONITOR_NAME(form, name) , name(program.form.peek())
          HMONITOR_EACH_FORM(HMONITOR_NAME)
#undef HMONITOR_NAME
{
    program.desktop.onEndWanted = [this] { form1.endAsked(); };
    program.desktop.onSaveWanted = [this] { form1.saveAsked(); };
}

Forms::~Forms() = default;

}  // namespace hmonitor
