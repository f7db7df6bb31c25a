// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace hmonitor {

/// A path has no blanks to break a line at: each part of it may end one.
inline std::string breakable(std::string_view sentence) {
    constexpr const char* kMayBreak = "\u200b";
    std::string text;
    for (const char character : sentence) {
        text += character;
        if (character == '/' || character == '\\') text += kMayBreak;
    }
    return text;
}

}  // namespace hmonitor
