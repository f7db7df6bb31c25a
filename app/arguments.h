// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace hmonitor {

/// What the program was started with.
struct Arguments {
    std::optional<std::filesystem::path> folder;  ///< of `--folder`: the working folder
    std::string fault;  ///< what is wrong, a sentence; empty where nothing is
};

/// Of what the toolkit has left of them.
Arguments readArguments(int count, const char* const* words);

}  // namespace hmonitor
