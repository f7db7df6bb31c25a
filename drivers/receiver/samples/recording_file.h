// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace hm16::receiver {

// Throws SourceError, with its own sentence for each, if `file` is a folder, a pipe or something
// else without an end, or empty. A missing file is left to the function that opens it.
void requireFile(const std::filesystem::path& file);

}  // namespace hm16::receiver
