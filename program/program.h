// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>

#include "core/station_state.h"
#include "display/desktop.h"
#include "program/driver_door.h"
#include "program/figure_tips.h"
#include "program/form_list.h"
#include "program/limit_alarms.h"
#include "program/program_words.h"
#include "program/slot.h"
#include "program/unit_in_use.h"

namespace hmonitor {

class Files;
class Tuner;

// The forms of the program. Who calls one includes its header in a .cpp.
#define HMONITOR_DECLARE(form, name) class form;
HMONITOR_EACH_FORM(HMONITOR_DECLARE)
#undef HMONITOR_DECLARE

/// What all forms share: the desktop, the driver, the state of the station, the working folder,
/// and a slot for each form.
struct Program {
    Program(display::Desktop& itsDesktop, DriverLibrary& library, const Files& folder)
        : desktop(itsDesktop), driver(library, itsDesktop), files(folder) {
        driver.listeners().join(limits);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    display::Desktop& desktop;
    DriverDoor driver;
    const Files& files;
    hmonitor::StationState StationState;
    ProgramWords words;
    /// The brand that the program was built for.
    hmonitor::Brand Brand = hmonitor::Brand::Marvenia;
    hmonitor::LibraryFault LibraryFault;
    hmonitor::FirstFolder FirstFolder;
    hmonitor::HistoryNotice HistoryNotice;
    hmonitor::FirstStart FirstStart;
    UnitInUse unitInUse;
    FigureTips figureTips;
    /// Hears the driver door.
    LimitAlarms limits;
    /// Does every tuning.
    hmonitor::Tuner* tuner = nullptr;

#define HMONITOR_SLOT(form, name) Slot<hmonitor::form> form;
    HMONITOR_EACH_FORM(HMONITOR_SLOT)
#undef HMONITOR_SLOT

    /// The four panels of the rack, top to bottom, as they are disabled and enabled together.
    std::array<display::Form*, 4> rack{};

    void enableRack();
    void disableRack();
};

/// A form of the program, owned by whoever had it made.
using MadeForm = std::unique_ptr<display::Form>;
/// Makes the form of a slot and fills it (program/make_form.h).
template <class FormType>
MadeForm makeForm(Program& program, Slot<FormType>& slot);

}  // namespace hmonitor
