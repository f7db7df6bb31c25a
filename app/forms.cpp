// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/forms.h"

namespace hmonitor {

Forms::Forms(Program& program, Form_WaitLoad::Brand brand)
    : tuner(program),
      formWaitLoad(program, brand),
      formModoDemo(program),
      form3(program),
      form1(program),
      formB(program),
      formC(program),
      formD(program),
      formSetMemories(program),
      formTuner(program),
      formNewSpectro(program),
      formD1(program),
      formD1a(program),
      form6(program),
      formD1aP(program),
      formDd3(program),
      form7(program),
      formBandSCanner(program),
      formPrintBandScan(program),
      formD4A(program, dayTables),
      form15(program, dayTables),
      form4(program),
      formSpectrumAnalizer(program),
      formEditMeasurement(program),
      formSpectrumAnalizerSpan(program) {
    program.Form_WaitLoad.fill(formWaitLoad);
    program.FormModoDemo.fill(formModoDemo);
    program.Form3.fill(form3);
    program.Form1.fill(form1);
    program.Form_B.fill(formB);
    program.Form_C.fill(formC);
    program.Form_D.fill(formD);
    program.Form_bSetMemories.fill(formSetMemories);
    program.Form_bTuner.fill(formTuner);
    program.Form_NewSpectro.fill(formNewSpectro);
    program.Form_D1.fill(formD1);
    program.FormD1a.fill(formD1a);
    program.Form6.fill(form6);
    program.FormD1aP.fill(formD1aP);
    program.Form_Dd3.fill(formDd3);
    program.Form7.fill(form7);
    program.Form_BandSCanner.fill(formBandSCanner);
    program.Form_PrintBandScan.fill(formPrintBandScan);
    program.Form_D4A.fill(formD4A);
    program.Form15.fill(form15);
    program.Form4.fill(form4);
    program.frmSpectrumAnalizer.fill(formSpectrumAnalizer);
    program.frmEditMeasurement.fill(formEditMeasurement);
    program.frmSpectrumAnalizerSpan.fill(formSpectrumAnalizerSpan);
    program.rack = {&form1, &formB, &formC, &formD};
}

Forms::~Forms() = default;

}  // namespace hmonitor
