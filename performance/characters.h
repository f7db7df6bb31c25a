// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace hmonitor {

/// How many characters a text has: columns are counted in them, not in bytes.
inline std::size_t characters(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace hmonitor
