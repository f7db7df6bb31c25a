// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/code_page.h"

#include <array>
#include <cstdint>
#include <optional>

#include "base/utf8.h"

namespace hmonitor {

namespace {

constexpr unsigned kFirstOwn = 0x80;  // 80 to 9F differ from the Unicode numbers
constexpr std::array<char16_t, 32> kOwn = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t letterOf(unsigned char byte) {
    const bool isOwn = byte >= kFirstOwn && byte < kFirstOwn + kOwn.size();
    return isOwn ? kOwn[byte - kFirstOwn] : byte;
}

std::optional<char> byteOf(char32_t letter) {
    for (std::size_t i = 0; i < kOwn.size(); ++i) {
        if (kOwn[i] == letter) return static_cast<char>(kFirstOwn + i);
    }
    const bool isSame = letter < kFirstOwn || (letter >= 0xA0 && letter <= 0xFF);
    return isSame ? std::optional(static_cast<char>(letter)) : std::nullopt;
}

char32_t lowerCase(char32_t letter) {
    const bool isPlain = letter >= 'A' && letter <= 'Z';
    const bool isAccented = letter >= 0xC0 && letter <= 0xDE && letter != 0xD7;
    const bool isEvenUpper = letter == 0x160 || letter == 0x152 || letter == 0x17D;
    if (isPlain || isAccented) return letter + 0x20;
    if (isEvenUpper) return letter + 1;
    return letter == 0x178 ? 0xFF : letter;
}

}  // namespace

std::string utf8FromCodePage(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (char byte : bytes) base::appendCharacter(text, letterOf(static_cast<unsigned char>(byte)));
    return text;
}

std::string codePageFromUtf8(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const base::Character letter = base::firstCharacter(text.substr(at));
        bytes += letter.number ? byteOf(*letter.number).value_or('?') : '?';
        at += letter.size;
    }
    return bytes;
}

std::string foldedCase(std::string_view utf8) {
    std::string folded;
    folded.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const base::Character letter = base::firstCharacter(utf8.substr(at));
        const bool isInPage = letter.number && *letter.number < 0x800;
        if (isInPage) {
            base::appendCharacter(folded, lowerCase(*letter.number));
        } else {
            folded += utf8.substr(at, letter.size);
        }
        at += letter.size;
    }
    return folded;
}

}  // namespace hmonitor
