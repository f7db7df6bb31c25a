// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/read_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "base/descriptor.h"

namespace base {

namespace {

int readOpened(int fd, std::string& bytes) {
    struct stat status = {};
    if (::fstat(fd, &status) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    constexpr std::size_t kPiece = 16384;
    std::size_t size = 0;
    for (;;) {
        bytes.resize(size + kPiece);
        const ssize_t count = ::read(fd, bytes.data() + size, kPiece);
        if (count < 0 && errno == EINTR) continue;
        const int reason = count < 0 ? errno : 0;
        size = count < 0 ? 0 : size + static_cast<std::size_t>(count);
        if (count > 0) continue;
        bytes.resize(size);
        return reason;
    }
}

}  // namespace

FileBytes readFile(const std::filesystem::path& file) {
    const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!opened) return {"", errno};
    FileBytes read;
    read.reason = readOpened(opened.get(), read.bytes);
    return read;
}

}  // namespace base
