// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace base {

/// What a text begins with.
struct Character {
    std::optional<char32_t> number;  ///< none: a byte that is no UTF-8
    std::size_t size = 1;            ///< in bytes
};

/// The first character of a text that is not empty.
Character firstCharacter(std::string_view utf8);

/// Appends a character by its number, which must be one that Unicode may have.
void appendCharacter(std::string& utf8, char32_t number);

/// Whether a byte goes on with the character of the byte before it.
constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many characters a text has: columns are counted in them, not in bytes.
inline std::size_t characters(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char byte) { return !continuesCharacter(byte); }));
}

}  // namespace base
