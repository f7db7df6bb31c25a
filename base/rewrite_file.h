// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "base/rewrite_steps.h"

namespace base {

/// Puts `bytes` in the place of `target`: writes a file beside it, flushes it to the disk and
/// renames it over, so that a crash leaves the old file or the new one, whole. A file that holds
/// these bytes already is not touched. Permissions stay, a link stays a link, a file that its owner
/// has made read-only stays. Gives 0, or the `errno` value of what failed; the old file then stands
/// as it was. Any thread may call it.
int rewriteFile(const std::filesystem::path& target, std::string_view bytes,
                RewriteWatcher* watcher = nullptr);

/// "NAME cannot be written: REASON", without a full stop.
inline std::string notWritten(std::string_view name, int reason) {
    return std::string(name) + " cannot be written: " + std::generic_category().message(reason);
}

}  // namespace base
