// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/rewrite_file.h"
#include "base/utf8_path.h"

namespace hm16 {

// Replaces `file` by `bytes`, whole or not at all. Gives nothing when done, else one sentence with
// the file and the system's reason; the old file then stands.
inline std::optional<std::string> replaceFile(const std::filesystem::path& file,
                                              std::string_view bytes) {
    const int reason = base::rewriteFile(file, bytes);
    if (reason == 0) return std::nullopt;
    return base::notWritten(base::utf8Of(file), reason) + ".";
}

}  // namespace hm16
