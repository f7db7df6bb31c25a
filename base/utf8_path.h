// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace base {

/// The path that a text names. A path takes a plain text for one of the system's own letters, which
/// are not UTF-8 everywhere.
inline std::filesystem::path pathOf(std::string_view utf8) {
    return std::u8string_view(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size());
}

/// A path in UTF-8. What a path says of itself as plain text is in the system's own letters, and
/// ends the program where a name has no such letters. Half a character, which Windows lets stand in
/// a name, becomes U+FFFD: no file is found by that.
std::string utf8Of(const std::filesystem::path& path);

}  // namespace base
