// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/taken_for_granted.h"

namespace hmonitor {

void endWithFault(display::Desktop& desktop, const FileFault& fault) {
    desktop.messageBox({"HMonitor", fault.sentence, display::BoxIcon::Critical});
    desktop.end();
}

void settle(display::Desktop& desktop, const std::optional<FileFault>& fault) {
    if (fault && fault->kind != FileFaultKind::NotWritten) endWithFault(desktop, *fault);
    tellFault(desktop, fault);
}

void tellFault(display::Desktop& desktop, const std::optional<FileFault>& fault) {
    if (fault) desktop.messageBox({"HMonitor", fault->sentence, display::BoxIcon::Critical});
}

}  // namespace hmonitor
