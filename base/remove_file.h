// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace base {

/// Deletes a file, never a folder. Gives 0, or the `errno` value of what failed (ENOENT where there
/// is none).
int removeFile(const std::filesystem::path& file);

}  // namespace base
