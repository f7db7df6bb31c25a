// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace base {

/// The number of temporary names that a process has for files that it is writing.
inline constexpr int kMostLeftovers = 1000;

/// The name of a file while it is written, ".hmonitor-PROCESS-NUMBER.rewrite".
std::string leftoverName(long process, int number);

/// Whether a file name is such a temporary name. No pattern of the program's own files (*.dat,
/// *.res, *.spc, *.log, *.3Ds, *.hm) matches it.
bool isLeftover(std::string_view fileName);

/// Deletes temporary files left in `folder` by interrupted rewrites, but none that is being written
/// now, by this or another program or thread.
void removeLeftovers(const std::filesystem::path& folder);

#if !defined(_WIN32)

/// Takes the lock that marks a file as being written; false if another process has it. The system
/// releases it when its holder dies. On a disk without locks nobody has one.
bool takeWritingLock(int fd);

/// Whether `path` itself, not what a link of that name leads to, still names the open file: it was
/// neither deleted nor renamed, and no other file has taken its name.
bool isStillNamed(int fd, const std::filesystem::path& path);

#endif

}  // namespace base
