// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace hmonitor {

/// Whether a name (UTF-8) can be that of a file in a folder: it is no path, and nothing that the
/// system takes for another file, a device or a pattern.
bool isBareName(std::string_view name);

/// The name, as the folder has it, of the file that the system itself finds by a bare name; none if
/// it finds none.
std::optional<std::string> nameThere(const std::filesystem::path& folder, std::string_view name);

}  // namespace hmonitor
