// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace hmonitor {

FolderLock::FolderLock(const std::filesystem::path& folder)
    : fd_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (fd_ < 0) return;
    isTaken_ = ::flock(fd_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

FolderLock::~FolderLock() {
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace hmonitor
