// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "all_forms.h"
#include "app/forms.h"
#include "display/qt/windows/qt_desktop.h"
#include "tests/display/qt/application.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {

/// The program's forms on the real desktop, with a scripted unit. Memory 1 holds 97.9 MHz. Nothing
/// is shown yet.
class ProgramScreen {
    /// Initialised first: the desktop needs it.
    struct Application {
        Application() { display::qt::startApplication(); }
    };
    Application application_;

 public:
    ProgramScreen() {
        scratch.write("hm-16.dat", lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
        scratch.write("normal.hm", lines({"100", "0", "0", "0", "1.000", "0", "0", "2", "90"}));
        scratch.write("Hm-res.dat", lines({"0", "0", "0"}));
        scratch.write("scan.dat", "");
        scratch.write("halden.dat", memoryBlock({{1, "RADIO UNO", "979"}}));
        desktop.rack({&forms.form1, &forms.formB, &forms.formC, &forms.formD, &forms.form3});
    }

    TempFolder scratch;
    int argc = 0;
    display::qt::QtDesktop desktop{argc, nullptr};
    ScriptedDriver driver;
    Files files{scratch.path()};
    Program program{desktop, driver, files};
    Forms forms{program};
};

}  // namespace hmonitor::test
