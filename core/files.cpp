// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "core/code_page.h"
#include "core/numbers.h"
#include "core/rewrite_file.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

FileFault missing(std::string_view name) {
    return {FileFaultKind::Missing, "File not found: " + std::string(name)};
}

FileFault fault(FileFaultKind kind, std::string_view name, const char* what, int reason) {
    return {kind, std::string(name) + what + std::generic_category().message(reason)};
}

FileFault unreadable(std::string_view name, int reason) {
    return fault(FileFaultKind::Unreadable, name, " cannot be read: ", reason);
}

bool isBareName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

// Gives 0 or what failed. Anything but a plain file is refused before it is read: a pipe by the
// name of a settings file would hold the program for good.
int readOpened(int fd, std::string& bytes) {
    struct stat status = {};
    if (::fstat(fd, &status) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    std::array<char, 16384> piece;
    for (;;) {
        const ssize_t count = ::read(fd, piece.data(), piece.size());
        if (count == 0) return 0;
        if (count > 0) {
            bytes.append(piece.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return errno;
        }
    }
}

}  // namespace

Files::Files(std::filesystem::path folder, RewriteWatcher* watcher)
    : folder_(std::move(folder)), watcher_(watcher) {}

std::optional<std::string> Files::find(std::string_view name) const {
    if (!isBareName(name)) return std::nullopt;
    std::error_code none;
    if (std::filesystem::exists(folder_ / name, none)) return std::string(name);

    const std::string folded = foldedCase(name);
    std::optional<std::string> found;
    for (std::filesystem::directory_iterator at(folder_, none), end; !none && at != end;
         at.increment(none)) {
        std::string other = at->path().filename().string();
        const bool isMatch = foldedCase(other) == folded;
        if (isMatch && (!found || other < *found)) found = std::move(other);
    }
    return found;
}

FileResult<std::string> Files::read(std::string_view name) const {
    const auto found = find(name);
    if (!found) return missing(name);
    const int fd = ::open((folder_ / *found).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return errno == ENOENT ? missing(name) : unreadable(name, errno);
    std::string bytes;
    const int reason = readOpened(fd, bytes);
    ::close(fd);
    if (reason) return unreadable(name, reason);
    return bytes;
}

FileResult<std::vector<std::string>> Files::readLines(std::string_view name, int count) const {
    const auto bytes = read(name);
    if (!bytes) return bytes.fault();
    TextLines text(*bytes);
    std::vector<std::string> lines;
    for (int n = 1; n <= count; ++n) {
        const auto line = text.next();
        if (!line) {
            return FileFault{FileFaultKind::TooShort,
                             std::string(name) + ": line " + wholeText(n).str() + " is missing"};
        }
        lines.emplace_back(*line);
    }
    return lines;
}

std::optional<FileFault> Files::rewrite(std::string_view name, std::string_view bytes) const {
    const int reason =
        isBareName(name)
            ? rewriteFile(folder_ / find(name).value_or(std::string(name)), bytes, watcher_)
            : EINVAL;
    if (!reason) return std::nullopt;
    return fault(FileFaultKind::NotWritten, name, " cannot be written: ", reason);
}

std::optional<FileFault> Files::remove(std::string_view name) const {
    const auto found = find(name);
    if (!found) return std::nullopt;
    if (::unlink((folder_ / *found).c_str()) == 0 || errno == ENOENT) return std::nullopt;
    return fault(FileFaultKind::NotWritten, name, " cannot be deleted: ", errno);
}

void Files::removeLeftovers() const {
    std::error_code none;
    std::vector<std::filesystem::path> leftovers;
    for (std::filesystem::directory_iterator at(folder_, none), end; !none && at != end;
         at.increment(none)) {
        if (isRewriteLeftover(at->path().filename().string())) leftovers.push_back(at->path());
    }
    for (const auto& leftover : leftovers) std::filesystem::remove(leftover, none);
}

}  // namespace hmonitor
