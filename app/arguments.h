// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace hmonitor {

/// What the program was started with.
struct Arguments {
    std::optional<std::filesystem::path> folder;  ///< of `--folder`: the working folder
    std::string answer;  ///< help or version, where they were asked for: the program prints it
                         ///< and ends
    std::string fault;   ///< what is wrong, a sentence; empty where nothing is
};

/// Of all words, or of what the toolkit has left of them. An answer that was asked for is given
/// beside the toolkit's own words too.
Arguments readArguments(int count, const char* const* words);

}  // namespace hmonitor
