// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace base {

/// How many names of its own a process has for files that it is writing.
inline constexpr int kMostLeftovers = 1000;

/// The name of a file while it is written, ".hmonitor-PROCESS-NUMBER.rewrite".
std::string leftoverName(long process, int number);

/// Whether a file name is such a one. No pattern of the program's own files (*.dat, *.res, *.spc,
/// *.log, *.3Ds, *.hm) matches it.
bool isLeftover(std::string_view fileName);

/// Deletes what rewrites cut short have left in `folder`. What somebody is writing just now stays,
/// be it another program or another thread.
void removeLeftovers(const std::filesystem::path& folder);

#if !defined(_WIN32)

/// Takes the lock that says that a file is being written; false when another has it. The system
/// gives it back when its holder dies, however he died. Where a disk knows no locks nobody has one.
bool takeWritingLock(int fd);

/// Whether an open file has lost its name.
bool isDeleted(int fd);

#endif

}  // namespace base
