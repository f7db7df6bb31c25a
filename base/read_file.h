// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace base {

/// What reading a file gave.
struct FileBytes {
    std::string bytes;  ///< the whole file; empty when it could not be read
    int reason = 0;     ///< 0, or the `errno` value of what failed

    explicit operator bool() const { return reason == 0; }
};

/// The whole of a plain file. Anything else is refused before it is read (EISDIR, EINVAL): a pipe
/// by the name of a settings file would hold the program for good.
FileBytes readFile(const std::filesystem::path& file);

}  // namespace base
