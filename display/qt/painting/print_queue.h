// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace display::qt {

// What the desktop's print system says of itself. Qt hands a page over without telling whether the
// queue took it, and waits for a server that does not answer as long as the server likes.

enum class PrintSystem {
    Answers,
    Absent,  ///< there is none
    Silent   ///< it is there and says nothing
};

/// Asks it, and waits no longer than a hand at a key does; while it is silent, nothing else on this
/// thread waits for it either. To be asked before Qt is asked for a printer. Where the system has
/// no CUPS, Qt alone knows, and it counts as answering.
PrintSystem askPrintSystem();

/// What the queue said to the page that this thread handed over last, in its own words; empty when
/// it took the page.
std::string lastQueueFault();

}  // namespace display::qt
