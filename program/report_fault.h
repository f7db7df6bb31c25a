// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <utility>

#include "core/file_result.h"
#include "display/desktop.h"

namespace hmonitor {

/// Shows the fault in a message box and ends the program: nothing is overwritten, nothing is left
/// half done, and the driver is not called again.
[[noreturn]] void endWithFault(display::Desktop& desktop, const FileFault& fault);

/// The content of a file that the program cannot do without; if it could not be read, the program
/// ends.
template <class T>
T require(display::Desktop& desktop, FileResult<T> result) {
    if (!result) endWithFault(desktop, result.fault());
    return std::move(*result);
}

/// For a settings file that was read and rewritten: if it could not be read, the program ends; if
/// it could not be written, a message box says so and the handler goes on.
void report(display::Desktop& desktop, const std::optional<FileFault>& fault);

/// Shows a failed rewrite in a message box; the handler goes on. What holds for longer, a full disk
/// or a read-only folder, is told once: the rack's head shows it.
void warn(display::Desktop& desktop, const std::optional<FileFault>& fault);

}  // namespace hmonitor
