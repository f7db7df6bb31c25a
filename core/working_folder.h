// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>

#include "core/files.h"

namespace hmonitor {

/// Where the program's files lie: the folder that was asked for, else the program's own, else,
/// where that cannot be written, one of the user's (`$XDG_DATA_HOME/hmonitor`, or
/// `~/.local/share/hmonitor`). A user without a home keeps the program's own.
std::filesystem::path workingFolder(const std::optional<std::filesystem::path>& asked,
                                    const std::filesystem::path& program);

/// What came of laying the first contents.
enum class Laying {
    None,   ///< settings were there already
    First,  ///< the folder has settings for the first time
};

/// Makes the folder and puts the first contents in it that lie beside the program: settings,
/// presets, days of a log, the folder `Logs`. Never over a file that is there, each file whole or
/// not at all.
Laying layFirstContents(const std::filesystem::path& folder, const std::filesystem::path& program);

}  // namespace hmonitor
