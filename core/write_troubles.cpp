// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/write_troubles.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace hmonitor {

namespace {

namespace fs = std::filesystem;

/// What a file and its folder take on the disk beside its bytes.
constexpr std::uintmax_t kSpare = 65536;

WriteTroubles::Why whyOf(int reason) {
    switch (reason) {
        case EROFS:
        case EACCES:
        case EPERM:
            return WriteTroubles::Why::ReadOnly;
        case ENOSPC:
#if defined(EDQUOT)
        case EDQUOT:
#endif
            return WriteTroubles::Why::DiskFull;
        default:
            return WriteTroubles::Why::Other;
    }
}

bool mayBeWritten(const fs::path& path) {
#if defined(_WIN32)
    return ::_waccess(path.c_str(), 2) == 0;
#else
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
#endif
}

bool hasRoom(const fs::path& folder, std::size_t bytes) {
    std::error_code unknown;
    const fs::space_info space = fs::space(folder, unknown);
    // Who does not know tries again.
    return unknown || space.available >= bytes + kSpare;
}

bool holds(const fs::path& file, WriteTroubles::Why why, std::size_t bytes) {
    const fs::path folder = file.parent_path();
    std::error_code none;
    switch (why) {
        case WriteTroubles::Why::ReadOnly:
            return !mayBeWritten(folder) || (fs::exists(file, none) && !mayBeWritten(file));
        case WriteTroubles::Why::DiskFull:
            return !hasRoom(folder, bytes);
        case WriteTroubles::Why::Other:
            break;
    }
    return fs::is_directory(file, none) || !fs::is_directory(folder, none);
}

}  // namespace

std::shared_ptr<bool> WriteTroubles::failed(const fs::path& file, int reason, std::size_t bytes) {
    const Why why = whyOf(reason);
    standing_[file] = {why, bytes};
    std::shared_ptr<bool>& told = told_[why];
    if (!told) told = std::make_shared<bool>(false);
    return told;
}

void WriteTroubles::lookAt(const fs::path& folder) {
    // Any file of it: none is named by that name.
    const fs::path any = folder / "";
    if (!mayBeWritten(folder)) (void)failed(any, EROFS, 0);
    if (!hasRoom(folder, 0)) (void)failed(any, ENOSPC, 0);
}

void WriteTroubles::lookAgain() {
    std::erase_if(standing_, [](const auto& trouble) {
        return !holds(trouble.first, trouble.second.why, trouble.second.bytes);
    });
    std::erase_if(told_, [this](const auto& told) {
        return std::ranges::none_of(
            standing_, [&](const auto& trouble) { return trouble.second.why == told.first; });
    });
}

}  // namespace hmonitor
