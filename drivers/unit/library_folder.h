// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace hm16 {

// The folder of the library (or program) that this code was linked into: where a library looks for
// its settings file. Falls back on the current folder when the system does not tell.
std::filesystem::path libraryFolder();

}  // namespace hm16
