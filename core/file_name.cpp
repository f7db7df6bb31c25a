// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/file_name.h"

#include <system_error>

namespace hmonitor {

bool isBareName(std::string_view name) {
    constexpr std::string_view kOfPaths("/\0", 2);
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(kOfPaths) == std::string_view::npos;
}

std::optional<std::string> nameThere(const std::filesystem::path& folder, std::string_view name) {
    std::error_code none;
    if (!std::filesystem::exists(folder / name, none)) return std::nullopt;
    return std::string(name);
}

}  // namespace hmonitor
