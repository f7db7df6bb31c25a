// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

#include "core/rewrite_steps.h"

namespace hmonitor {

/// Puts `bytes` in the place of `target`: writes a file beside it, flushes it to the disk and
/// renames it over, so that a crash leaves the old file or the new one. Gives 0, or the `errno`
/// value of what failed; the old file then stands as it was.
int rewriteFile(const std::filesystem::path& target, std::string_view bytes,
                RewriteWatcher* watcher);

/// Whether a file name is one that `rewriteFile` uses while it works. No pattern of the program's
/// own files (*.dat, *.res, *.spc, *.log, *.3Ds, *.hm) matches it.
bool isRewriteLeftover(std::string_view fileName);

}  // namespace hmonitor
