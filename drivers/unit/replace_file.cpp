// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/replace_file.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "drivers/unit/number_text.h"

#if defined(_WIN32)
#include <process.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif

namespace hm16 {

namespace {

namespace fs = std::filesystem;

// No list of *.dat, *.res, *.spc or *.log files takes such a name for one of its own.
constexpr std::string_view kHead = "~hm16-";
constexpr std::string_view kTail = ".new";

std::string sentence(const fs::path& file, int reason) {
    return file.string() + " cannot be written: " + std::generic_category().message(reason) + ".";
}

long ownProcess() {
#if defined(_WIN32)
    return _getpid();
#else
    return getpid();
#endif
}

fs::path unfinishedName(const fs::path& file) {
    std::string name(kHead);
    name += file.filename().string();
    name += '.';
    name += std::to_string(ownProcess());
    name += kTail;
    return file.parent_path() / name;
}

#if defined(_WIN32)

int writeThrough(const fs::path& file, std::string_view bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return out ? 0 : EIO;
}

int renameOver(const fs::path& from, const fs::path& to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
               ? 0
               : EACCES;
}

bool stillRuns(long process) {
    return process == ownProcess();
}

#else

// 0, or the system's reason.
int writeThrough(const fs::path& file, std::string_view bytes) {
    const int handle = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (handle < 0) return errno;
    int reason = 0;
    while (!bytes.empty() && reason == 0) {
        const ssize_t written = ::write(handle, bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            reason = errno;
        }
    }
    if (reason == 0 && ::fsync(handle) != 0) reason = errno;
    if (::close(handle) != 0 && reason == 0) reason = errno;
    return reason;
}

// The folder is flushed too: the new name must outlive a power cut as the bytes do. A file system
// that cannot flush a folder is no failure, for the file itself is whole.
int renameOver(const fs::path& from, const fs::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) return errno;
    const fs::path folder = to.has_parent_path() ? to.parent_path() : fs::path(".");
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
    return 0;
}

bool stillRuns(long process) {
    return process > 0 && (::kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
}

#endif

// The process in "~hm16-NAME.PROCESS.new", 0 when there is none.
long processIn(std::string_view name) {
    name.remove_suffix(kTail.size());
    const auto dot = name.rfind('.');
    if (dot == std::string_view::npos) return 0;
    return static_cast<long>(numberIn(name.substr(dot + 1)).value_or(0));
}

}  // namespace

std::optional<std::string> replaceFile(const fs::path& file, std::string_view bytes) {
    const fs::path unfinished = unfinishedName(file);
    int reason = writeThrough(unfinished, bytes);
    if (reason == 0) reason = renameOver(unfinished, file);
    if (reason == 0) return std::nullopt;
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    return sentence(file, reason);
}

void removeUnfinishedFiles(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> found;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const bool ours = name.starts_with(kHead) && name.ends_with(kTail) &&
                          name.size() > kHead.size() + kTail.size();
        if (ours && !stillRuns(processIn(name))) found.push_back(entry->path());
    }
    for (const auto& file : found) fs::remove(file, error);
}

std::optional<std::string> fileBytes(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return std::nullopt;
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    if (in.bad()) return std::nullopt;
    return bytes;
}

}  // namespace hm16
