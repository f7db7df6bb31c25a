// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace hm16::receiver {

// Throws SourceError, with a sentence of its own for each, where `file` is a folder, a pipe or
// another thing without an end, or empty. What is not there at all is left to whoever opens it.
void requireFile(const std::filesystem::path& file);

}  // namespace hm16::receiver
