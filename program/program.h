// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "core/station_state.h"
#include "display/desktop.h"
#include "program/driver_door.h"
#include "program/figure_tips.h"
#include "program/program_words.h"
#include "program/slot.h"
#include "program/unit_in_use.h"

namespace hmonitor {

class Files;
class Tuner;

// The forms of the program. A .cpp that calls one includes its header.
class Form_WaitLoad;
class FormModoDemo;
class Form3;
class Form1;
class Form_B;
class Form_C;
class Form_D;
class Form_bSetMemories;
class Form_bTuner;
class Form_NewSpectro;
class Form_D1;
class FormD1a;
class Form6;
class FormD1aP;
class Form_Dd3;
class Form7;
class Form_BandSCanner;
class Form_PrintBandScan;
class Form_D4A;
class Form15;
class Form4;
class frmSpectrumAnalizer;
class frmEditMeasurement;
class frmSpectrumAnalizerSpan;

/// What all forms share: the desktop, the driver, the state of the station, the working folder,
/// and a slot for each form.
struct Program {
    Program(display::Desktop& itsDesktop, DriverLibrary& library, const Files& folder)
        : desktop(itsDesktop), driver(library, itsDesktop), files(folder) {}
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    display::Desktop& desktop;
    DriverDoor driver;
    const Files& files;
    hmonitor::StationState StationState;
    ProgramWords words;
    hmonitor::LibraryFault LibraryFault;
    UnitInUse unitInUse;
    FigureTips figureTips;
    /// Does every tuning.
    hmonitor::Tuner* tuner = nullptr;

    Slot<hmonitor::Form_WaitLoad> Form_WaitLoad;
    Slot<hmonitor::FormModoDemo> FormModoDemo;
    Slot<hmonitor::Form3> Form3;
    Slot<hmonitor::Form1> Form1;
    Slot<hmonitor::Form_B> Form_B;
    Slot<hmonitor::Form_C> Form_C;
    Slot<hmonitor::Form_D> Form_D;
    Slot<hmonitor::Form_bSetMemories> Form_bSetMemories;
    Slot<hmonitor::Form_bTuner> Form_bTuner;
    Slot<hmonitor::Form_NewSpectro> Form_NewSpectro;
    Slot<hmonitor::Form_D1> Form_D1;
    Slot<hmonitor::FormD1a> FormD1a;
    Slot<hmonitor::Form6> Form6;
    Slot<hmonitor::FormD1aP> FormD1aP;
    Slot<hmonitor::Form_Dd3> Form_Dd3;
    Slot<hmonitor::Form7> Form7;
    Slot<hmonitor::Form_BandSCanner> Form_BandSCanner;
    Slot<hmonitor::Form_PrintBandScan> Form_PrintBandScan;
    Slot<hmonitor::Form_D4A> Form_D4A;
    Slot<hmonitor::Form15> Form15;
    Slot<hmonitor::Form4> Form4;
    Slot<hmonitor::frmSpectrumAnalizer> frmSpectrumAnalizer;
    Slot<hmonitor::frmEditMeasurement> frmEditMeasurement;
    Slot<hmonitor::frmSpectrumAnalizerSpan> frmSpectrumAnalizerSpan;

    /// The four panels of the rack, top to bottom, as they are disabled and enabled together.
    std::array<display::Form*, 4> rack{};

    void enableRack();
    void disableRack();
};

}  // namespace hmonitor
