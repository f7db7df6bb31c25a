// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/rewrite_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "core/numbers.h"

namespace hmonitor {

namespace {

constexpr std::string_view kLeftoverStart = ".hmonitor-";
constexpr std::string_view kLeftoverEnd = ".rewrite";

class Descriptor {
 public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    int get() const { return fd_; }
    void reset(int fd) {
        close();
        fd_ = fd;
    }
    int close() {
        const int fd = fd_;
        fd_ = -1;
        return fd >= 0 && ::close(fd) != 0 ? errno : 0;
    }

 private:
    int fd_;
};

template <typename Action>
int watched(RewriteWatcher* watcher, RewriteStep step, Action action) {
    if (watcher) {
        if (const int fault = watcher->at(step, StepMoment::Before)) return fault;
    }
    if (const int fault = action()) return fault;
    return watcher ? watcher->at(step, StepMoment::After) : 0;
}

int failure(int result) {
    return result < 0 ? errno : 0;
}

int writeAll(int fd, std::string_view bytes, RewriteWatcher* watcher) {
    while (!bytes.empty()) {
        const int fault = watched(watcher, RewriteStep::Write, [&] {
            const ssize_t written = ::write(fd, bytes.data(), bytes.size());
            if (written < 0) return errno == EINTR ? 0 : errno;
            bytes.remove_prefix(static_cast<std::size_t>(written));
            return 0;
        });
        if (fault) return fault;
    }
    return 0;
}

// The owner is put back as far as the system lets us: a run as administrator must not lock the
// user out of a settings file.
int copyPermissions(int fd, const struct stat& old) {
    if (::fchown(fd, old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
    return failure(::fchmod(fd, old.st_mode & 07777));
}

int openBeside(const std::string& path, Descriptor& file) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    ::unlink(path.c_str());  // of a run that died and had the same process number
    file.reset(::open(path.c_str(), kFlags, 0666));
    return failure(file.get());
}

int fillBeside(const std::string& path, std::string_view bytes, const struct stat* old,
               RewriteWatcher* watcher) {
    Descriptor file(-1);
    const auto open = [&] { return openBeside(path, file); };
    if (const int fault = watched(watcher, RewriteStep::Open, open)) return fault;
    if (old) {
        if (const int fault = copyPermissions(file.get(), *old)) return fault;
    }
    if (const int fault = writeAll(file.get(), bytes, watcher)) return fault;
    const auto flush = [&] { return failure(::fsync(file.get())); };
    if (const int fault = watched(watcher, RewriteStep::Flush, flush)) return fault;
    return watched(watcher, RewriteStep::Close, [&] { return file.close(); });
}

int checkReplaceable(const std::string& path, const struct stat& old) {
    if (S_ISDIR(old.st_mode)) return EISDIR;
    if (!S_ISREG(old.st_mode)) return EINVAL;
    // A rename would pass over a file that its owner has made read-only.
    return failure(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

// A link stays a link: the file that it leads to is replaced.
std::filesystem::path behindLinks(const std::filesystem::path& target) {
    std::error_code none;
    const auto real = std::filesystem::canonical(target, none);
    return none ? target : real;
}

}  // namespace

int rewriteFile(const std::filesystem::path& target, std::string_view bytes,
                RewriteWatcher* watcher) {
    const std::filesystem::path real = behindLinks(target);
    struct stat old = {};
    const bool isThere = ::stat(real.c_str(), &old) == 0;
    if (isThere) {
        if (const int fault = checkReplaceable(real.string(), old)) return fault;
    }
    const std::filesystem::path folder = real.has_parent_path() ? real.parent_path() : ".";
    const std::string beside = folder / (std::string(kLeftoverStart) + wholeText(::getpid()).str() +
                                         std::string(kLeftoverEnd));

    int fault = fillBeside(beside, bytes, isThere ? &old : nullptr, watcher);
    bool isRenamed = false;
    if (!fault) {
        fault = watched(watcher, RewriteStep::Rename, [&] {
            const int renamed = failure(std::rename(beside.c_str(), real.c_str()));
            isRenamed = renamed == 0;
            return renamed;
        });
    }
    if (!isRenamed) {
        ::unlink(beside.c_str());
        return fault;
    }
    // From here on the new file stands, so nothing counts as a failed rewrite any more: without
    // this last flush a power cut brings back the old file, whole.
    Descriptor folderFile(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    (void)watched(watcher, RewriteStep::FlushFolder,
                  [&] { return failure(::fsync(folderFile.get())); });
    return 0;
}

bool isRewriteLeftover(std::string_view fileName) {
    return fileName.starts_with(kLeftoverStart) && fileName.ends_with(kLeftoverEnd);
}

}  // namespace hmonitor
