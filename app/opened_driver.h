// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "display/call_box.h"
#include "drivers/loader/library.h"
#include "program/driver.h"
#include "program/loaded_driver.h"
#include "program/program.h"

#if defined(HMONITOR_HOSTED_LIBRARY)
#include "app/library_watch.h"
#include "drivers/host/hosted_library.h"
#endif

namespace hmonitor {

/// The driver library of a folder as the program uses it: in a process of its own, by hm16-host of
/// the same folder. Without that program, or on a system that has no such processes, inside the
/// program itself. Where there is no library, one that answers nothing: then the program offers to
/// go on without a unit, and what was wrong goes to standard error too.
class OpenedDriver {
 public:
    /// `patience` is how long a call may last before the user is asked.
    explicit OpenedDriver(const std::filesystem::path& folder,
                          std::chrono::milliseconds patience = std::chrono::seconds(5));
    OpenedDriver(const OpenedDriver&) = delete;
    OpenedDriver& operator=(const OpenedDriver&) = delete;

    DriverLibrary& library() { return *driver_; }
    const LibraryFault& fault() const { return fault_; }
    /// From here on the program knows why no unit answers, where the library says it, and the user
    /// is asked, by this box, when the library crashes or hangs.
    void watchFor(Program& program, display::CallBox& box);

 private:
    bool openHosted(const std::filesystem::path& folder, std::chrono::milliseconds patience);
    void openInside(const std::filesystem::path& folder);
    void tell(const hm16::LoadResult& result);
    void use(const HM16_Functions& functions, HM16_ExtensionFunction extension);
    void tellAbsenceTo(Program& program) const;

    hm16::LoadResult inside_;
#if defined(HMONITOR_HOSTED_LIBRARY)
    std::unique_ptr<hm16::HostedLibrary> hosted_;
    std::unique_ptr<LibraryWatch> watch_;
#endif
    std::unique_ptr<DriverLibrary> driver_;
    LoadedDriver* loaded_ = nullptr;  ///< the same, where there is a library
    LibraryFault fault_;
};

}  // namespace hmonitor
