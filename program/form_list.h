// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Every form of the program, in the order in which they are made: its class, which is also the name
// of its slot, and its name in Forms (app/forms.h). A new form stands here and in its folder's list
// of sources, and nowhere else.
#define HMONITOR_EACH_FORM(FORM)                            \
    FORM(Form_WaitLoad, formWaitLoad)                       \
    FORM(FormModoDemo, formModoDemo)                        \
    FORM(Form3, form3)                                      \
    FORM(FormCard, formCard)                                \
    FORM(Form1, form1)                                      \
    FORM(Form_B, formB)                                     \
    FORM(Form_C, formC)                                     \
    FORM(Form_D, formD)                                     \
    FORM(FormLimits, formLimits)                            \
    FORM(Form_bSetMemories, formSetMemories)                \
    FORM(Form_bTuner, formTuner)                            \
    FORM(Form_NewSpectro, formNewSpectro)                   \
    FORM(Form_D1, formD1)                                   \
    FORM(FormD1a, formD1a)                                  \
    FORM(Form6, form6)                                      \
    FORM(FormD1aP, formD1aP)                                \
    FORM(Form_Dd3, formDd3)                                 \
    FORM(Form7, form7)                                      \
    FORM(Form_BandSCanner, formBandSCanner)                 \
    FORM(Form_PrintBandScan, formPrintBandScan)             \
    FORM(Form_D4A, formD4A)                                 \
    FORM(Form15, form15)                                    \
    FORM(Form4, form4)                                      \
    FORM(frmSpectrumAnalizer, formSpectrumAnalizer)         \
    FORM(frmEditMeasurement, formEditMeasurement)           \
    FORM(frmSpectrumAnalizerSpan, formSpectrumAnalizerSpan) \
    FORM(Form_History, formHistory)
