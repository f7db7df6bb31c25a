// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows version of file_name.cpp.
#include <windows.h>

#include <algorithm>
#include <array>

#include "base/utf8.h"
#include "base/utf8_path.h"
#include "core/code_page.h"
#include "core/file_name.h"

namespace hmonitor {

namespace {

/// A device is one in every folder and whatever ending stands behind it.
bool isDevice(std::string_view name) {
    std::string stem = foldedCase(name.substr(0, name.find('.')));
    stem.erase(stem.find_last_not_of(' ') + 1);
    constexpr std::array<std::string_view, 6> kAlone{"con", "prn",    "aux",
                                                     "nul", "conin$", "conout$"};
    if (std::ranges::find(kAlone, stem) != kAlone.end()) return true;
    const bool isPort = stem.starts_with("com") || stem.starts_with("lpt");
    return isPort && stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9';
}

bool isText(std::string_view utf8) {
    while (!utf8.empty()) {
        const base::Character first = base::firstCharacter(utf8);
        if (!first.number) return false;
        utf8.remove_prefix(first.size);
    }
    return true;
}

}  // namespace

bool isBareName(std::string_view name) {
    // A colon names a disk or a file's second content.
    constexpr std::string_view kOfPathsAndPatterns = "/\\:*?\"<>|";
    const auto isOdd = [&](char c) {
        return (c >= 0 && c < ' ') || kOfPathsAndPatterns.find(c) != std::string_view::npos;
    };
    // Dots and blanks at the end are not looked at there: it would be another file's name.
    return !name.empty() && name.back() != '.' && name.back() != ' ' &&
           std::ranges::none_of(name, isOdd) && isText(name) && !isDevice(name);
}

std::optional<std::string> nameThere(const std::filesystem::path& folder, std::string_view name) {
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((folder / base::pathOf(name)).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    FindClose(search);
    return base::utf8Of(found.cFileName);
}

}  // namespace hmonitor
