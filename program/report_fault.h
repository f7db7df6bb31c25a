// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <utility>

#include "core/file_result.h"
#include "display/desktop.h"

namespace hmonitor {

/// Says the fault in one message box and ends the program: nothing is overwritten, nothing is half
/// done, and the driver is not called again.
[[noreturn]] void endWithFault(display::Desktop& desktop, const FileFault& fault);

/// What a file gave that the program takes for granted; without it the program ends.
template <class T>
T require(display::Desktop& desktop, FileResult<T> result) {
    if (!result) endWithFault(desktop, result.fault());
    return std::move(*result);
}

/// After a settings file was read and rewritten: a file that could not be read ends the program, a
/// write that failed is told and the handler goes on.
void report(display::Desktop& desktop, const std::optional<FileFault>& fault);

/// A rewrite that failed is one sentence with the file and the reason; the handler goes on.
void warn(display::Desktop& desktop, const std::optional<FileFault>& fault);

}  // namespace hmonitor
