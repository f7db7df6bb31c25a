// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/opened_driver.h"

#include <iostream>
#include <utility>

#include "app/library_fault.h"

namespace hmonitor {

OpenedDriver::OpenedDriver(const std::filesystem::path& folder,
                           std::chrono::milliseconds patience) {
    if (!openHosted(folder, patience)) openInside(folder);
    if (!driver_) driver_ = std::make_unique<NoLibrary>();
}

void OpenedDriver::tell(const hm16::LoadResult& result) {
    fault_ = libraryFault(result);
    std::cerr << "hmonitor: " << result.fault << std::endl;
}

void OpenedDriver::openInside(const std::filesystem::path& folder) {
    inside_ = hm16::Library::load(folder, hm16::Trust::OwnerAlone);
    if (!inside_.library) {
        tell(inside_);
        return;
    }
    use(inside_.library->functions(),
        reinterpret_cast<HM16_ExtensionFunction>(inside_.library->extra(HM16_EXTENSION_NAME)));
}

void OpenedDriver::use(const HM16_Functions& functions, HM16_ExtensionFunction extension) {
    auto loaded = std::make_unique<LoadedDriver>(functions, extension);
    loaded_ = loaded.get();
    driver_ = std::move(loaded);
}

void OpenedDriver::tellAbsenceTo(Program& program) const {
    if (!loaded_) return;
    loaded_->onAbsence = [&program](const UnitAbsence& absence) {
        // What a crash or a silence has to say says more.
        if (program.LibraryFault.english.empty()) program.LibraryFault = absenceFault(absence);
    };
}

#if defined(HMONITOR_HOSTED_LIBRARY)

bool OpenedDriver::openHosted(const std::filesystem::path& folder,
                              std::chrono::milliseconds patience) {
    hm16::HostedLibrary::Limits limits;
    limits.call = patience;
    hm16::HostedLoad load = hm16::HostedLibrary::load(folder / "hm16-host", folder, limits);
    if (load.noHost) {
        std::cerr << "hmonitor: hm16-host cannot be started from the program's folder: the driver "
                     "library runs inside the program, and a fault of it ends both."
                  << std::endl;
        return false;
    }
    if (!load.library) {
        tell(load.result);
        return true;
    }
    hosted_ = std::move(load.library);
    use(hosted_->functions(), hosted_->extension());
    return true;
}

void OpenedDriver::watchFor(Program& program, display::CallBox& box) {
    tellAbsenceTo(program);
    if (!hosted_) return;
    watch_ = std::make_unique<LibraryWatch>(program, box);
    hosted_->watchedBy(watch_.get());
}

#else

bool OpenedDriver::openHosted(const std::filesystem::path&, std::chrono::milliseconds) {
    return false;
}

void OpenedDriver::watchFor(Program& program, display::CallBox&) {
    tellAbsenceTo(program);
}

#endif

}  // namespace hmonitor
