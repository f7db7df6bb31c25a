// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace base {

/// The result of reading a file.
struct FileBytes {
    std::string bytes;  ///< the whole file; empty when it could not be read
    int reason = 0;     ///< 0, or the `errno` value of what failed

    explicit operator bool() const { return reason == 0; }
};

/// Reads a regular file. Anything else is refused before it is read (EISDIR, EINVAL): a pipe named
/// like a settings file would block the program for ever.
FileBytes readFile(const std::filesystem::path& file);

/// "NAME cannot be read: REASON", without a full stop.
inline std::string notRead(std::string_view name, int reason) {
    return std::string(name) + " cannot be read: " + std::generic_category().message(reason);
}

}  // namespace base
