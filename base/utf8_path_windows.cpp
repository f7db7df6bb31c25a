// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows version of utf8_path.cpp.
#include <windows.h>

#include "base/utf8_path.h"

namespace base {

std::string utf8Of(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    const int letters = static_cast<int>(wide.size());
    const auto convert = [&](char* to, int room) {
        return WideCharToMultiByte(CP_UTF8, 0, wide.data(), letters, to, room, nullptr, nullptr);
    };
    std::string utf8(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(utf8.data(), static_cast<int>(utf8.size()));
    return utf8;
}

}  // namespace base
