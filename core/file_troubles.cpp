// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_troubles.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <system_error>

#include "base/read_file.h"
#include "core/user_access.h"

namespace hmonitor {

namespace {

namespace fs = std::filesystem;

/// What a file and its folder take on the disk beside its bytes.
constexpr std::uintmax_t kSpare = 65536;

FileTroubles::Why whyOf(int reason) {
    switch (reason) {
        case EROFS:
        case EACCES:
        case EPERM:
            return FileTroubles::Why::ReadOnly;
        case ENOSPC:
#if defined(EDQUOT)
        case EDQUOT:
#endif
            return FileTroubles::Why::DiskFull;
        default:
            return FileTroubles::Why::Other;
    }
}

bool hasRoom(const fs::path& folder, std::uintmax_t bytes) {
    std::error_code unknown;
    const fs::space_info space = fs::space(folder, unknown);
    // Who does not know tries again.
    return unknown || space.available >= bytes + kSpare;
}

bool holds(const fs::path& file, FileTroubles::Why why, std::uintmax_t bytes) {
    const fs::path folder = file.parent_path();
    std::error_code none;
    switch (why) {
        case FileTroubles::Why::ReadOnly:
            return !mayBeWritten(folder) || (fs::exists(file, none) && !mayBeWritten(file));
        case FileTroubles::Why::DiskFull:
            return !hasRoom(folder, bytes);
        case FileTroubles::Why::Unreadable: {
            const int reason = base::readFile(file).reason;
            return reason != 0 && reason != ENOENT;
        }
        case FileTroubles::Why::Other:
            break;
    }
    return fs::is_directory(file, none) || !fs::is_directory(folder, none);
}

}  // namespace

std::shared_ptr<bool> FileTroubles::failed(const fs::path& file, int reason, std::uintmax_t bytes) {
    const Why why = whyOf(reason);
    standing_[file] = {why, bytes};
    std::shared_ptr<bool>& told = told_[why];
    if (!told) told = std::make_shared<bool>(false);
    return told;
}

void FileTroubles::written(const fs::path& file) {
    if (standing_.erase(file) != 0) forgetWhatWasTold();
}

void FileTroubles::read(const fs::path& file) {
    const auto trouble = standing_.find(file);
    // One that cannot be written can be read all the while.
    if (trouble != standing_.end() && trouble->second.why == Why::Unreadable)
        standing_.erase(trouble);
}

void FileTroubles::lookAt(const fs::path& folder) {
    // Any file of it: none is named by that name.
    const fs::path any = folder / "";
    if (!mayBeWritten(folder)) (void)failed(any, EROFS, 0);
    if (!hasRoom(folder, 0)) (void)failed(any, ENOSPC, 0);
}

void FileTroubles::lookAgain() {
    std::erase_if(standing_, [](const auto& trouble) {
        return !holds(trouble.first, trouble.second.why, trouble.second.bytes);
    });
    forgetWhatWasTold();
}

void FileTroubles::forgetWhatWasTold() {
    std::erase_if(told_, [this](const auto& told) {
        return std::ranges::none_of(
            standing_, [&](const auto& trouble) { return trouble.second.why == told.first; });
    });
}

}  // namespace hmonitor
