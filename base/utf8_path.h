// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

namespace base {

/// The path that a text names. A path takes a plain text for one of the system's own letters, which
/// are not UTF-8 everywhere.
inline std::filesystem::path pathOf(std::string_view utf8) {
    return std::u8string_view(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size());
}

}  // namespace base
