// SPDX-License-Identifier: GPL-3.0-or-later
// Text out of files and radios reaches a terminal as printable characters, never as control
// sequences.
#include "drivers/unit/standard_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "drivers/simulated/options.h"
#include "drivers/unit/settings.h"

namespace hm16 {
namespace {

using testing::ElementsAre;

TEST(Printable, LeavesWhatATerminalPrints) {
    for (const char* text : {"", "pace = 11", "~!\"'\\", "Ñandú 98.1 MHz", "€", "日本", "😀"}) {
        EXPECT_EQ(printable(text), text);
    }
}

TEST(Printable, EscapesEachControlCharacter) {
    EXPECT_EQ(printable("a\x1b[2Jb"), "a\\x1b[2Jb");
    EXPECT_EQ(printable(std::string_view("\0\x01\x1f\x7f", 4)), "\\x00\\x01\\x1f\\x7f");
    EXPECT_EQ(printable("\a\b\t\n\v\f\r"), "\\x07\\x08\\x09\\x0a\\x0b\\x0c\\x0d");
    // The controls beyond ASCII, U+0080 to U+009F; the no-break space after them is printed.
    EXPECT_EQ(printable("\xc2\x80\xc2\x9f"), "\\xc2\\x80\\xc2\\x9f");
    EXPECT_EQ(printable("\xc2\xa0"), "\xc2\xa0");
}

TEST(Printable, EscapesBytesThatAreNoCharacter) {
    EXPECT_EQ(printable("\x9b"), "\\x9b") << "a control by itself to an old terminal";
    EXPECT_EQ(printable("\x80z"), "\\x80z");
    EXPECT_EQ(printable("\xe2\x82"), "\\xe2\\x82") << "cut short";
    EXPECT_EQ(printable("\xe2\x82z"), "\\xe2\\x82z");
    EXPECT_EQ(printable("\xc0\x9b"), "\\xc0\\x9b") << "longer than need be";
    EXPECT_EQ(printable("\xe0\x82\x9b"), "\\xe0\\x82\\x9b");
    EXPECT_EQ(printable("\xf0\x80\x82\x9b"), "\\xf0\\x80\\x82\\x9b");
    EXPECT_EQ(printable("\xed\xa0\x80"), "\\xed\\xa0\\x80") << "half of a pair";
    EXPECT_EQ(printable("\xf4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80");
    EXPECT_EQ(printable("\xff\xfe"), "\\xff\\xfe");
}

TEST(Printable, NothingOfGarbageInASettingsFileOrdersATerminal) {
    std::mt19937 random(4);
    for (int round = 0; round < 500; ++round) {
        std::string garbage;
        for (int i = 0; i < 200; ++i) garbage += static_cast<char>(random() & 0xff);
        const std::string text = "pace = " + garbage + "\n[" + garbage + "\n" + garbage;
        Settings settings = Settings::parse(text, "hm-16.ini");
        (void)simulated::readOptions(settings);
        for (const std::string& fault : settings.faults()) {
            for (const char c : fault) {
                const auto byte = static_cast<unsigned char>(c);
                ASSERT_TRUE(byte >= 0x20 && byte != 0x7f) << "round " << round;
            }
            ASSERT_EQ(printable(fault), fault) << "round " << round;
        }
    }
}

TEST(Printable, AFaultNamesTheWrongSettingEscaped) {
    Settings settings = Settings::parse("pace = \x1b]0;mine\a\n", "hm-16.ini");
    EXPECT_EQ(settings.number("pace", 1, 0.5, 10), 1);
    EXPECT_THAT(
        settings.faults(),
        ElementsAre("hm-16.ini, line 1: pace is \"\\x1b]0;mine\\x07\", but must be a number "
                    "from 0.5 to 10."));
}

}  // namespace
}  // namespace hm16
