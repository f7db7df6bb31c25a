// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace hmonitor {

/// Locks a working folder for one run of the program: two runs would overwrite each other's
/// settings. The system releases the lock when the process ends, however it ends; no file is left.
class FolderLock {
 public:
    /// Tries to lock `folder`, without waiting.
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Whether another run has locked the folder. A folder on a file system without locks counts as
    /// free; on Windows so does one that another computer has locked.
    bool isTakenByAnother() const { return isTaken_; }

 private:
#if defined(_WIN32)
    void* mutex_ = nullptr;
#else
    int fd_ = -1;
#endif
    bool isTaken_ = false;
};

}  // namespace hmonitor
