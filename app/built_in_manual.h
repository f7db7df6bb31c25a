// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "core/files.h"
#include "manual/book.h"

namespace hmonitor {

/// The manual that is linked into the program. Its first page is a file of the working folder,
/// which has to outlive it, or else of the program's own folder: a user's folder may have none.
Book::Read builtInManual(const Files& workingFolder, const std::filesystem::path& own);

}  // namespace hmonitor
