// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/leftovers.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <system_error>
#include <vector>

#include "base/descriptor.h"

namespace base {

namespace {

// Neither follows a link of that name nor waits for a pipe.
void removeLeftover(const std::filesystem::path& path) {
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file || !takeWritingLock(file.get())) return;
    // Its writer may have renamed it before the lock was taken, and the next one have taken its
    // name.
    if (isStillNamed(file.get(), path)) ::unlink(path.c_str());
}

}  // namespace

bool takeWritingLock(int fd) {
    return ::flock(fd, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool isStillNamed(int fd, const std::filesystem::path& path) {
    struct stat open = {};
    struct stat named = {};
    return ::fstat(fd, &open) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

void removeLeftovers(const std::filesystem::path& folder) {
    std::error_code none;
    std::vector<std::filesystem::path> leftovers;
    for (std::filesystem::directory_iterator at(folder, none), end; !none && at != end;
         at.increment(none)) {
        if (isLeftover(at->path().filename().string())) leftovers.push_back(at->path());
    }
    for (const auto& leftover : leftovers) removeLeftover(leftover);
}

}  // namespace base
