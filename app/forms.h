// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analyses/form7.h"
#include "analyses/form_band_scanner.h"
#include "analyses/form_d.h"
#include "analyses/form_dd3.h"
#include "analyses/form_print_band_scan.h"
#include "analyzer/frm_edit_measurement.h"
#include "analyzer/frm_spectrum_analizer.h"
#include "analyzer/frm_spectrum_analizer_span.h"
#include "panels/audio/form_b.h"
#include "panels/modulation/form1.h"
#include "panels/quality/form_c.h"
#include "performance/form15.h"
#include "performance/form4.h"
#include "performance/form_d4a.h"
#include "program/program.h"
#include "program/tuner.h"
#include "spectrum/form6.h"
#include "spectrum/form_d1.h"
#include "spectrum/form_d1a.h"
#include "spectrum/form_d1ap.h"
#include "spectrum/form_new_spectro.h"
#include "startup/form3.h"
#include "startup/form_modo_demo.h"
#include "startup/form_wait_load.h"
#include "tuner/form_b_set_memories.h"
#include "tuner/form_b_tuner.h"

namespace hmonitor {

/// Owns every form of the program, and the tuner, for the whole run and fills the program's slots
/// with them.
class Forms {
 public:
    explicit Forms(Program& program, Form_WaitLoad::Brand brand = Form_WaitLoad::Brand::Marvenia);
    ~Forms();

    hmonitor::Tuner tuner;
    hmonitor::Form_WaitLoad formWaitLoad;
    hmonitor::FormModoDemo formModoDemo;
    hmonitor::Form3 form3;
    hmonitor::Form1 form1;
    hmonitor::Form_B formB;
    hmonitor::Form_C formC;
    hmonitor::Form_D formD;
    hmonitor::Form_bSetMemories formSetMemories;
    hmonitor::Form_bTuner formTuner;
    hmonitor::Form_NewSpectro formNewSpectro;
    hmonitor::Form_D1 formD1;
    hmonitor::FormD1a formD1a;
    hmonitor::Form6 form6;
    hmonitor::FormD1aP formD1aP;
    hmonitor::Form_Dd3 formDd3;
    hmonitor::Form7 form7;
    hmonitor::Form_BandSCanner formBandSCanner;
    hmonitor::Form_PrintBandScan formPrintBandScan;
    DayTables dayTables;  ///< the log's data, which outlive the windows that show them
    hmonitor::Form_D4A formD4A;
    hmonitor::Form15 form15;
    hmonitor::Form4 form4;
    hmonitor::frmSpectrumAnalizer formSpectrumAnalizer;
    hmonitor::frmEditMeasurement formEditMeasurement;
    hmonitor::frmSpectrumAnalizerSpan formSpectrumAnalizerSpan;
};

}  // namespace hmonitor
