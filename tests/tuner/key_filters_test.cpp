// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/key_filters.h"

#include <gtest/gtest.h>

#include "core/code_page.h"

namespace hmonitor {
namespace {

TEST(KeyFilters, UpperCaseTurnsEveryLetterOfTheCodePage) {
    // Each small letter of the page is followed by its capital.
    const std::u32string pairs =
        U"aAzZ\u00e0\u00c0\u00e1\u00c1\u00e9\u00c9\u00ed\u00cd\u00f1\u00d1\u00f3\u00d3\u00fa\u00da"
        U"\u00fc\u00dc\u00e7\u00c7\u00fe\u00de\u0161\u0160\u0153\u0152\u017e\u017d\u00ff\u0178";
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        EXPECT_EQ(upperCase(pairs[i]), pairs[i + 1]) << static_cast<unsigned>(pairs[i]);
        EXPECT_EQ(upperCase(pairs[i + 1]), pairs[i + 1]) << static_cast<unsigned>(pairs[i + 1]);
    }
}

TEST(KeyFilters, UpperCaseLeavesWhatHasNoCapitalInTheCodePage) {
    // Sharp s, the division sign, micro, digits, signs, and letters of other scripts.
    for (const char32_t character : std::u32string(U"\u00df\u00f7\u00d709 .-'\"\x08\u03b1\u4e5d")) {
        EXPECT_EQ(upperCase(character), character) << static_cast<unsigned>(character);
    }
    EXPECT_EQ(upperCase(0xb5), char32_t{0xb5});
}

TEST(KeyFilters, UpperCaseIsTheOtherWayOfTheFoldThatFindsFiles) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string letter = utf8FromCodePage(std::string(1, static_cast<char>(byte)));
        const std::string folded = foldedCase(letter);
        if (folded == letter) continue;
        // A capital: its small letter must come back to it.
        const auto number = [](const std::string& utf8) {
            char32_t value = static_cast<unsigned char>(utf8[0]);
            if (utf8.size() == 2) value = (value & 0x1f) << 6 | (utf8[1] & 0x3f);
            return value;
        };
        EXPECT_EQ(upperCase(number(folded)), number(letter)) << byte;
    }
}

TEST(KeyFilters, TheKeypadTakesDigitsAndBackspace) {
    for (char32_t character = 0; character < 0x180; ++character) {
        const bool taken = (character >= U'0' && character <= U'9') || character == 8;
        EXPECT_EQ(isDigitKey(character), taken) << static_cast<unsigned>(character);
    }
}

TEST(KeyFilters, TheCorrectionTakesDigitsPointSignsAndBackspace) {
    const std::u32string taken = U"0123456789.+-\x08";
    for (char32_t character = 0; character < 0x180; ++character) {
        EXPECT_EQ(isCorrectionKey(character), taken.find(character) != std::u32string::npos)
            << static_cast<unsigned>(character);
    }
}

}  // namespace
}  // namespace hmonitor
