// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/form_d.h"

#include "analyses/form_band_scanner.h"
#include "analyses/form_dd3.h"
#include "analyses/scan_file.h"
#include "analyzer/frm_spectrum_analizer.h"
#include "limits/form_limits.h"
#include "performance/form_d4a.h"
#include "program/make_form.h"
#include "program/report_fault.h"
#include "spectrum/channel_table.h"
#include "spectrum/class1.h"
#include "spectrum/form_d1.h"
#include "spectrum/form_d1a.h"
#include "spectrum/form_new_spectro.h"
#include "spectrum/open_spectrum.h"
#include "trends/form_history.h"

namespace hmonitor {

namespace {

/// Shows the window of an analysis beside the disabled rack; closing it enables the rack again.
/// Does nothing for a window that does not exist.
template <class FormType>
display::Event door(Program& program, Slot<FormType>& target) {
    return [&program, &target] {
        if (!target.filled()) return;
        closeChannelSpectrum(program);
        program.disableRack();
        target->show();
    };
}

}  // namespace

Form_D::Form_D(Program& itsProgram) : ProgramForm(itsProgram, "Form_D") {
    bindDoors();
}

Form_D::~Form_D() = default;

void Form_D::bindDoors() {
    bindKey(Image1, "OpenN", "OpenA", door(program, program.FormD1a));
    bindKey(Image2, "OpenN", "OpenA", door(program, program.Form_BandSCanner));
    bindKey(Image3, "OpenN", "OpenA", door(program, program.Form_Dd3));
    bindKey(Image4, "LogN", "LogA", door(program, program.Form_D4A));
    // It looks on beside everything else: nothing is closed or disabled for it.
    bindKey(KeyHistory, "HistoryN", "HistoryA", [this] {
        if (program.Form_History.filled()) program.Form_History->open();
    });
    bindKey(KeyLimits, "MinN", "MinA", door(program, program.FormLimits));
    Image5.onRelease = [this] { turnSwitch(); };
    Image6.onClick = door(program, program.frmSpectrumAnalizer);
    // After its window was closed there is no other way to open the channel spectrum.
    PictureGraph1.onDoubleClick = door(program, program.Form_D1);
}

void Form_D::onLoad() {
    makeGraph();
    proveScanFile();
    if (program.Form_NewSpectro.filled()) program.Form_NewSpectro->Command3D1.press();
}

void Form_D::proveScanFile() {
    // The result is not used. The band scanner needs the file; without it the program ends here, at
    // its start, rather than in the middle of the work.
    require(desktop(), ScanFile::read(program.files));
}

template MadeForm makeForm(Program&, Slot<Form_D>&);

}  // namespace hmonitor
