// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/rewrite_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <utility>

#include "base/descriptor.h"
#include "base/leftovers.h"
#include "base/read_file.h"

namespace base {

namespace {

namespace fs = std::filesystem;

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

// The temporary file beside the old one.
class FileBeside {
 public:
    explicit FileBeside(fs::path folder) : folder_(std::move(folder)) {}
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside() {
        if (lock_ && !renamed_) ::unlink(path_.c_str());
    }

    // Creates a new file only: an existing one, or the target of a link, is never opened.
    int open() {
        for (int number = 0; number < kMostLeftovers; ++number) {
            path_ = folder_ / leftoverName(::getpid(), number);
            constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
            file_.reset(::open(path_.c_str(), kFlags, 0666));
            if (!file_ && errno == EEXIST) continue;
            if (!file_) return errno;
            // Another process that removes left-overs may have deleted the file between the two
            // calls.
            if (takeWritingLock(file_.get()) && isStillNamed(file_.get(), path_)) return holdLock();
        }
        return EEXIST;
    }

    // Keeps the owner, if the system allows it: a run as administrator must not lock the user out
    // of a settings file.
    int copyPermissions(const struct stat& old) {
        if (::fchown(file_.get(), old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
        return failure(::fchmod(file_.get(), old.st_mode & 07777));
    }

    int write(std::string_view bytes, RewriteWatcher* watcher) {
        while (!bytes.empty()) {
            const int fault = watched(watcher, RewriteStep::Write, [&] {
                const ssize_t written = ::write(file_.get(), bytes.data(), bytes.size());
                if (written < 0) return errno == EINTR ? 0 : errno;
                bytes.remove_prefix(static_cast<std::size_t>(written));
                return 0;
            });
            if (fault) return fault;
        }
        return 0;
    }

    int flush() { return failure(::fsync(file_.get())); }
    int close() { return file_.close(); }

    int renameOver(const fs::path& target) {
        const int fault = failure(std::rename(path_.c_str(), target.c_str()));
        renamed_ = fault == 0;
        return fault;
    }
    bool renamed() const { return renamed_; }

 private:
    // A second descriptor keeps the lock while the file is closed and renamed.
    int holdLock() {
        lock_.reset(::fcntl(file_.get(), F_DUPFD_CLOEXEC, 0));
        if (lock_) return 0;
        const int reason = errno;
        ::unlink(path_.c_str());
        return reason;
    }

    fs::path folder_;
    fs::path path_;
    Descriptor file_;
    Descriptor lock_;
    bool renamed_ = false;
};

int fill(FileBeside& beside, std::string_view bytes, const struct stat* old,
         RewriteWatcher* watcher) {
    const auto open = [&] { return beside.open(); };
    if (const int fault = watched(watcher, RewriteStep::Open, open)) return fault;
    if (old) {
        if (const int fault = beside.copyPermissions(*old)) return fault;
    }
    if (const int fault = beside.write(bytes, watcher)) return fault;
    const auto flush = [&] { return beside.flush(); };
    if (const int fault = watched(watcher, RewriteStep::Flush, flush)) return fault;
    return watched(watcher, RewriteStep::Close, [&] { return beside.close(); });
}

int checkReplaceable(const fs::path& path, const struct stat& old) {
    if (S_ISDIR(old.st_mode)) return EISDIR;
    if (!S_ISREG(old.st_mode)) return EINVAL;
    // A rename would replace even a file that its owner has made read-only.
    return failure(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

bool holds(const fs::path& file, const struct stat& status, std::string_view bytes) {
    if (static_cast<std::size_t>(status.st_size) != bytes.size()) return false;
    const FileBytes read = readFile(file);
    return read && read.bytes == bytes;
}

// A symbolic link is kept: its target is replaced.
fs::path behindLinks(const fs::path& target) {
    std::error_code none;
    const auto real = fs::canonical(target, none);
    return none ? target : real;
}

int replace(const fs::path& real, std::string_view bytes, const struct stat* old,
            RewriteWatcher* watcher) {
    const fs::path folder = real.has_parent_path() ? real.parent_path() : ".";
    FileBeside beside(folder);
    if (const int fault = fill(beside, bytes, old, watcher)) return fault;
    const auto rename = [&] { return beside.renameOver(real); };
    const int fault = watched(watcher, RewriteStep::Rename, rename);
    if (!beside.renamed()) return fault;
    // The new file is in place, so an error from here on is no failed rewrite: without this last
    // flush a power cut may bring back the old file, whole.
    const Descriptor folderFile(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    (void)watched(watcher, RewriteStep::FlushFolder,
                  [&] { return failure(::fsync(folderFile.get())); });
    return 0;
}

}  // namespace

int rewriteFile(const fs::path& target, std::string_view bytes, RewriteWatcher* watcher) {
    const fs::path real = behindLinks(target);
    struct stat old = {};
    if (::stat(real.c_str(), &old) != 0) return replace(real, bytes, nullptr, watcher);
    if (const int fault = checkReplaceable(real, old)) return fault;
    return holds(real, old, bytes) ? 0 : replace(real, bytes, &old, watcher);
}

}  // namespace base
