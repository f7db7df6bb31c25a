// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/standard_error.h"

#include <cstdio>

namespace hm16 {

namespace {

// How many bytes at the start of `text` are one character that prints; 0 where none is.
std::size_t printedLength(std::string_view text) {
    const auto at = [text](std::size_t i) -> unsigned {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const unsigned lead = at(0);
    if (lead < 0x80) return lead >= 0x20 && lead != 0x7f ? 1 : 0;
    const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xc0) != 0x80) return 0;
    }
    const unsigned second = at(1);
    // U+0080 to U+009F are controls too; the others are longer than need be, surrogates, or
    // beyond the last character.
    const bool none = (lead == 0xc2 && second < 0xa0) || (lead == 0xe0 && second < 0xa0) ||
                      (lead == 0xed && second >= 0xa0) || (lead == 0xf0 && second < 0x90) ||
                      (lead == 0xf4 && second >= 0x90);
    return none ? 0 : length;
}

void appendEscaped(std::string& line, unsigned char byte) {
    constexpr char kDigits[] = "0123456789abcdef";
    line += "\\x";
    line += kDigits[byte >> 4];
    line += kDigits[byte & 15];
}

}  // namespace

std::string printable(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        std::size_t length = printedLength(text);
        if (length > 0) {
            line += text.substr(0, length);
        } else {
            appendEscaped(line, static_cast<unsigned char>(text.front()));
            length = 1;
        }
        text.remove_prefix(length);
    }
    return line;
}

void sayOnStandardError(std::string_view sentence) {
    std::fprintf(stderr, "%s\n", printable(sentence).c_str());
}

}  // namespace hm16
