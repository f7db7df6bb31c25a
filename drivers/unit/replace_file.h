// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace hm16 {

// Replaces `file` by `bytes`: writes a new file beside it, flushes it to the disk and renames it
// over the old one. Whatever cuts this short, a reader finds the old file or the new one, whole.
// Gives nothing when done, else one sentence with the file and the system's reason; the old file
// then stands.
std::optional<std::string> replaceFile(const std::filesystem::path& file, std::string_view bytes);

// Removes what replacements cut short have left in `folder`; those of a process that still runs
// stay. Called at a library's start.
void removeUnfinishedFiles(const std::filesystem::path& folder);

// The whole of a file; nothing when it does not exist or cannot be read.
std::optional<std::string> fileBytes(const std::filesystem::path& file);

}  // namespace hm16
