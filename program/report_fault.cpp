// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/report_fault.h"

namespace hmonitor {

void endWithFault(display::Desktop& desktop, const FileFault& fault) {
    desktop.messageBox({"HMonitor", fault.sentence, display::BoxIcon::Critical});
    desktop.end();
}

void report(display::Desktop& desktop, const std::optional<FileFault>& fault) {
    if (fault && fault->kind != FileFaultKind::NotWritten) endWithFault(desktop, *fault);
    warn(desktop, fault);
}

void warn(display::Desktop& desktop, const std::optional<FileFault>& fault) {
    if (!fault) return;
    if (fault->told) {
        // A start asks for nothing that would have to be stored; the rack's head tells it.
        if (!desktop.queue().gateOpen() || *fault->told) return;
        *fault->told = true;
    }
    desktop.messageBox({"HMonitor", fault->sentence, display::BoxIcon::Critical});
}

}  // namespace hmonitor
