// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace display::qt {

// The state of the print system. Qt hands a page over without telling whether the queue took it,
// and waits without limit for a server that does not answer.

enum class PrintSystem {
    Answers,
    Absent,  ///< there is none
    Silent   ///< it is there but does not answer
};

/// Asks the print server, with a short time limit. If it is silent, later requests on this thread
/// fail at once instead of waiting. Must be called before Qt is asked for a printer. Where the
/// system has no CUPS this returns Answers: only Qt can tell.
PrintSystem askPrintSystem();

/// The queue's error for the page that this thread sent last, in the queue's own words; empty when
/// it took the page.
std::string lastQueueFault();

}  // namespace display::qt
