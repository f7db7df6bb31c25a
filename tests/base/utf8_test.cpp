// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(Utf8, GivesTheFirstCharacterAndItsSize) {
    struct Row {
        std::string_view text;
        char32_t number;
        std::size_t size;
    };
    for (const Row& row :
         {Row{"A\xC3\xB1", U'A', 1}, Row{"\xC3\xB1o", U'\u00F1', 2},
          Row{"\xE2\x82\xAC", U'\u20AC', 3}, Row{"\xF4\x8F\xBF\xBF", U'\U0010FFFF', 4},
          Row{std::string_view("\0x", 2), U'\0', 1}}) {
        const Character first = firstCharacter(row.text);
        EXPECT_EQ(first.number, row.number);
        EXPECT_EQ(first.size, row.size);
    }
}

TEST(Utf8, OfABrokenCharacterTheFirstByteIsNone) {
    for (const std::string_view text : {"\x80", "\xC3", "\xC3(", "\xE2\x82", "\xC0\xAF",
                                        "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        const Character first = firstCharacter(text);
        EXPECT_FALSE(first.number) << text;
        EXPECT_EQ(first.size, 1u);
    }
}

TEST(Utf8, EveryCharacterComesBack) {
    for (char32_t number = 0; number <= 0x10FFFF; number += number < 0x1000 ? 1 : 61) {
        if (number >= 0xD800 && number <= 0xDFFF) continue;
        std::string text;
        appendCharacter(text, number);
        EXPECT_EQ(firstCharacter(text).number, number);
        EXPECT_EQ(firstCharacter(text).size, text.size());
        EXPECT_EQ(characters(text), 1u);
    }
}

TEST(Utf8, CountsCharacters) {
    EXPECT_EQ(characters(""), 0u);
    EXPECT_EQ(characters("a\u00F1o \u20AC"), 5u);
}

}  // namespace
}  // namespace base
