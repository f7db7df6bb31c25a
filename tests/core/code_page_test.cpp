// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/code_page.h"

#include <gtest/gtest.h>

#include <fstream>

namespace hmonitor {
namespace {

std::string fromHex(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

TEST(CodePage, EachByteIsTheLetterOfTheTableBothWays) {
    std::ifstream table(HMONITOR_SOURCE_DIR "/tests/core/code_page_table.txt");
    int rows = 0;
    for (std::string byte, letter; table >> byte >> letter; ++rows) {
        EXPECT_EQ(utf8FromCodePage(fromHex(byte)), fromHex(letter)) << byte;
        EXPECT_EQ(codePageFromUtf8(fromHex(letter)), fromHex(byte)) << byte;
    }
    EXPECT_EQ(rows, 256);
}

TEST(CodePage, AnyBytesSurviveTheRoundTripTheUndefinedOnesToo) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    EXPECT_EQ(codePageFromUtf8(utf8FromCodePage(all)), all);
    EXPECT_EQ(codePageFromUtf8(utf8FromCodePage("\x81\x8D\x8F\x90\x9D")), "\x81\x8D\x8F\x90\x9D");
}

TEST(CodePage, ALetterThatThePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(codePageFromUtf8("\u0141\u00f3d\u017a"),
              "?\xF3"
              "d?");
    EXPECT_EQ(codePageFromUtf8("\u20ac\u4e2d\U0001F4FB"), "\x80??");
    EXPECT_EQ(codePageFromUtf8("\u0080"), "?");  // a control character that no byte stands for
}

TEST(CodePage, EachByteThatIsNoUtf8BecomesAQuestionMark) {
    EXPECT_EQ(codePageFromUtf8("\xFF"
                               "a\xC3"),
              "?a?");
    EXPECT_EQ(codePageFromUtf8("\xC0\xAF"), "??");  // an overlong encoding
    EXPECT_EQ(codePageFromUtf8("\xE0\x81\x81"), "???");
    EXPECT_EQ(codePageFromUtf8("\xF0\x80\x81\x81"), "????");
    EXPECT_EQ(codePageFromUtf8("\xED\xA0\x80"), "???");       // half of a surrogate pair
    EXPECT_EQ(codePageFromUtf8("\xF4\x90\x80\x80"), "????");  // beyond U+10FFFF
    EXPECT_EQ(codePageFromUtf8("\xE2\x82"), "??");
}

TEST(FoldedCase, MakesTheLettersOfThePageLower) {
    EXPECT_EQ(foldedCase("HM-16.DAT"), "hm-16.dat");
    EXPECT_EQ(foldedCase("\u00c1\u00d1\u00dc\u0160\u0178\u0152\u017d"),
              "\u00e1\u00f1\u00fc\u0161\u00ff\u0153\u017e");
    EXPECT_EQ(foldedCase("\u00d7\u00f7\u00df\u20ac"), "\u00d7\u00f7\u00df\u20ac");
    EXPECT_EQ(foldedCase("A\xFF"
                         "B"),
              "a\xFF"
              "b");
}

}  // namespace
}  // namespace hmonitor
