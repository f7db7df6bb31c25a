// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows versions of leftovers.cpp, read_file.cpp, remove_file.cpp and rewrite_file.cpp. A
// file that is being written is opened without sharing, so the system keeps it from being removed.
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/leftovers.h"
#include "base/read_file.h"
#include "base/remove_file.h"
#include "base/rewrite_file.h"
#include "base/utf8_path.h"

namespace base {

namespace {

namespace fs = std::filesystem;

int reasonNow() {
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return ENOENT;
        case ERROR_FILE_EXISTS:
            return EEXIST;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ENOSPC;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
            return EACCES;
        default:
            return EIO;
    }
}

class Handle {
 public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (*this) CloseHandle(handle_);
    }
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

 private:
    HANDLE handle_;
};

constexpr std::size_t kPiece = 1 << 20;

int fill(const fs::path& beside, std::string_view bytes) {
    const Handle file(CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return reasonNow();
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        if (!WriteFile(file.get(), bytes.data(), size, &written, nullptr)) return reasonNow();
        bytes.remove_prefix(written);
    }
    return FlushFileBuffers(file.get()) ? 0 : reasonNow();
}

int replace(const fs::path& target, std::string_view bytes) {
    for (int number = 0; number < kMostLeftovers; ++number) {
        const fs::path beside =
            target.parent_path() / leftoverName(static_cast<long>(GetCurrentProcessId()), number);
        int fault = fill(beside, bytes);
        if (fault == EEXIST) continue;
        constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
        if (!fault && !MoveFileExW(beside.c_str(), target.c_str(), kFlags)) fault = reasonNow();
        if (fault) DeleteFileW(beside.c_str());
        return fault;
    }
    return EEXIST;
}

}  // namespace

FileBytes readFile(const fs::path& path) {
    std::error_code none;
    if (fs::is_directory(path, none)) return {"", EISDIR};
    const Handle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return {"", reasonNow()};
    if (GetFileType(file.get()) != FILE_TYPE_DISK) return {"", EINVAL};
    FileBytes read;
    for (;;) {
        const std::size_t size = read.bytes.size();
        read.bytes.resize(size + kPiece);
        DWORD count = 0;
        if (!::ReadFile(file.get(), read.bytes.data() + size, kPiece, &count, nullptr)) {
            return {"", reasonNow()};
        }
        read.bytes.resize(size + count);
        if (count == 0) return read;
    }
}

int rewriteFile(const fs::path& target, std::string_view bytes, RewriteWatcher*) {
    std::error_code none;
    const auto canonical = fs::canonical(target, none);
    const fs::path& real = none ? target : canonical;
    const FileBytes old = readFile(real);
    if (old.reason == EISDIR || old.reason == EINVAL) return old.reason;
    return old && old.bytes == bytes ? 0 : replace(real, bytes);
}

int removeFile(const fs::path& file) {
    return DeleteFileW(file.c_str()) ? 0 : reasonNow();
}

void removeLeftovers(const fs::path& folder) {
    std::error_code none;
    std::vector<fs::path> leftovers;
    for (fs::directory_iterator at(folder, none), end; !none && at != end; at.increment(none)) {
        if (isLeftover(utf8Of(at->path().filename()))) leftovers.push_back(at->path());
    }
    for (const auto& leftover : leftovers) DeleteFileW(leftover.c_str());
}

}  // namespace base
