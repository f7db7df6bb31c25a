// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows version of folder_lock.cpp.
#include <windows.h>

#include <cwchar>
#include <iterator>

#include "core/folder_lock.h"

namespace hmonitor {

namespace {

/// What the system knows the folder by, whichever path leads there; false where there is none.
bool identityOf(const std::filesystem::path& folder, BY_HANDLE_FILE_INFORMATION& identity) {
    constexpr DWORD kEverybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE open = CreateFileW(folder.c_str(), 0, kEverybody, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (open == INVALID_HANDLE_VALUE) return false;
    const bool known = GetFileInformationByHandle(open, &identity) != 0;
    CloseHandle(open);
    return known && (identity.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

// A folder itself cannot be locked there: a name that all sessions of the computer share is.
FolderLock::FolderLock(const std::filesystem::path& folder) {
    BY_HANDLE_FILE_INFORMATION of{};
    if (!identityOf(folder, of)) return;
    wchar_t name[64];
    std::swprintf(name, std::size(name), L"Global\\hmonitor-%08lx-%08lx%08lx",
                  of.dwVolumeSerialNumber, of.nFileIndexHigh, of.nFileIndexLow);
    mutex_ = CreateMutexW(nullptr, FALSE, name);
    const DWORD said = GetLastError();
    // Another user's is there, but not to be opened.
    isTaken_ = mutex_ != nullptr ? said == ERROR_ALREADY_EXISTS : said == ERROR_ACCESS_DENIED;
}

FolderLock::~FolderLock() {
    if (mutex_ != nullptr) CloseHandle(mutex_);
}

}  // namespace hmonitor
