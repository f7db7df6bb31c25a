// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows version of user_access.cpp. The C library's own question looks at the read-only mark
// alone, which no folder has, and not at who may write there; and it gives the environment in the
// letters of the old programs, in which a user's name may be lost.
#include <windows.h>

#include <cstdlib>
#include <system_error>

#include "base/leftovers.h"
#include "core/user_access.h"

namespace hmonitor {

namespace {

namespace fs = std::filesystem;

bool isGiven(const fs::path& path, DWORD right, DWORD how, DWORD flags) {
    constexpr DWORD kEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(path.c_str(), right, kEverybody, nullptr, how, flags, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

/// Some disks tell only when a file is made: one that goes when it is closed.
bool takesFiles(const fs::path& folder) {
    const auto process = static_cast<long>(GetCurrentProcessId());
    return isGiven(folder / base::leftoverName(process, base::kMostLeftovers), DELETE, OPEN_ALWAYS,
                   FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE);
}

}  // namespace

bool mayBeWritten(const fs::path& path) {
    std::error_code none;
    if (fs::is_directory(path, none)) return takesFiles(path);
    return isGiven(path, FILE_WRITE_DATA, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
}

std::optional<fs::path> userData() {
    const wchar_t* data = ::_wgetenv(L"LOCALAPPDATA");
    if (!data || !fs::path(data).is_absolute()) return std::nullopt;
    return fs::path(data);
}

}  // namespace hmonitor
