// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/user_access.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

namespace hmonitor {

namespace {

namespace fs = std::filesystem;

/// A folder that the environment names; a name that is not absolute is none.
std::optional<fs::path> folderNamedBy(const char* variable) {
    const char* text = std::getenv(variable);
    if (!text || !fs::path(text).is_absolute()) return std::nullopt;
    return fs::path(text);
}

}  // namespace

bool mayBeWritten(const fs::path& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

std::optional<fs::path> userData() {
    if (auto data = folderNamedBy("XDG_DATA_HOME")) return data;
    const auto home = folderNamedBy("HOME");
    if (!home) return std::nullopt;
    return *home / ".local" / "share";
}

}  // namespace hmonitor
