// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>

namespace hmonitor {

/// Whether the user may write a file, or make files in a folder. Nothing is left behind.
bool mayBeWritten(const std::filesystem::path& path);

/// The system's place for what programs keep for the user (`$XDG_DATA_HOME` or `~/.local/share`,
/// on Windows `%LOCALAPPDATA%`); none where the environment names none that is absolute.
std::optional<std::filesystem::path> userData();

}  // namespace hmonitor
