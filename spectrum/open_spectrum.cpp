// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/open_spectrum.h"

#include "spectrum/form_d1.h"
#include "spectrum/form_new_spectro.h"

namespace hmonitor {

void closeChannelSpectrum(Program& program) {
    if (program.Form_NewSpectro.filled()) program.Form_NewSpectro.peek().unload();
    if (program.Form_D1.filled() && program.Form_D1.peek().loaded())
        program.Form_D1.peek().Command3D2.press();
}

void showChannelSpectrumOfStart(Program& program) {
    if (program.Form_D1.filled() && program.Form_D1.peek().loaded())
        program.Form_D1.peek().rackStands();
}

}  // namespace hmonitor
