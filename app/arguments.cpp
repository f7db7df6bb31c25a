// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/arguments.h"

#include <string_view>

namespace hmonitor {

Arguments readArguments(int count, const char* const* words) {
    constexpr std::string_view kFolder = "--folder";
    constexpr const char* kUsage = "; usage: hmonitor [--folder PATH]";
    Arguments read;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        std::string_view path;
        if (word == kFolder) {
            if (i + 1 < count) path = words[++i];
        } else if (word.starts_with("--folder=")) {
            path = word.substr(kFolder.size() + 1);
        } else {
            return {{}, "there is no option " + std::string(word) + kUsage};
        }
        if (path.empty()) return {{}, std::string("--folder lacks its path") + kUsage};
        read.folder = std::filesystem::path(path);
    }
    return read;
}

}  // namespace hmonitor
