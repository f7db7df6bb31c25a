// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

using testing::ElementsAre;
using testing::IsEmpty;

Settings parse(std::string_view text) {
    return Settings::parse(text, "hm-16.ini");
}

TEST(Settings, ReadsKeysOverCommentsBlankLinesAndBothLineEnds) {
    Settings settings =
        parse("\xEF\xBB\xBF; a comment\r\n\r\n# another\n Pace = 2.5 \r\nfile=a ; b");
    EXPECT_EQ(settings.number("pace", 1, 0, 10), 2.5);
    EXPECT_EQ(settings.text("file", ""), "a ; b");
    EXPECT_THAT(settings.faults(), IsEmpty());
}

TEST(Settings, GivesTheFallbackForAKeyThatIsNotThere) {
    Settings settings = parse("");
    EXPECT_EQ(settings.number("pace", 1.25, 0, 10), 1.25);
    EXPECT_EQ(settings.whole("seed", 16, 0, 99), 16);
    EXPECT_EQ(settings.text("file", "none"), "none");
    EXPECT_EQ(settings.choice("source", {"a", "b"}, 1), 1u);
    EXPECT_FALSE(settings.has("pace"));
    EXPECT_THAT(settings.faults(), IsEmpty());
}

TEST(Settings, CallsAKeyBehindASectionByBothNames) {
    Settings settings = parse("seed = 1\n[Radio]\nrate = 2\n[]\nlast = 3\n");
    EXPECT_EQ(settings.whole("seed", 0, 0, 9), 1);
    EXPECT_EQ(settings.whole("radio.rate", 0, 0, 9), 2);
    EXPECT_EQ(settings.whole("last", 0, 0, 9), 3);
    EXPECT_THAT(settings.faults(), IsEmpty());
}

TEST(Settings, TellsTheLineOfANumberOutOfRange) {
    Settings settings = parse("\npace = 11\n");
    EXPECT_EQ(settings.number("pace", 1, 0.5, 10), 1);
    EXPECT_THAT(settings.faults(),
                ElementsAre("hm-16.ini, line 2: pace is \"11\", but must be a number from 0.5 to "
                            "10."));
}

TEST(Settings, TakesTheEndsOfARange) {
    Settings settings = parse("a = 0.5\nb = 10\n");
    EXPECT_EQ(settings.number("a", 1, 0.5, 10), 0.5);
    EXPECT_EQ(settings.whole("b", 1, 0, 10), 10);
    EXPECT_THAT(settings.faults(), IsEmpty());
}

TEST(Settings, RefusesTextAndPartsForAWholeNumber) {
    Settings settings = parse("a = many\nb = 1.5\nc =\n");
    EXPECT_EQ(settings.whole("a", 7, 0, 9), 7);
    EXPECT_EQ(settings.whole("b", 7, 0, 9), 7);
    EXPECT_EQ(settings.whole("c", 7, 0, 9), 7);
    EXPECT_THAT(
        settings.faults(),
        ElementsAre("hm-16.ini, line 1: a is \"many\", but must be a whole number from 0 to "
                    "9.",
                    "hm-16.ini, line 2: b is \"1.5\", but must be a whole number from 0 to "
                    "9.",
                    "hm-16.ini, line 3: c is \"\", but must be a whole number from 0 to "
                    "9."));
}

TEST(Settings, ListsTheWordsOfAChoice) {
    Settings settings = parse("source = tape\npace = FAST");
    EXPECT_EQ(settings.choice("source", {"recording", "soapy"}, 0), 0u);
    EXPECT_EQ(settings.choice("pace", {"real", "fast"}, 0), 1u);
    EXPECT_THAT(settings.faults(),
                ElementsAre("hm-16.ini, line 1: source is \"tape\", but must be one of: recording, "
                            "soapy."));
}

TEST(Settings, NamesAKeyThatNobodyAskedFor) {
    Settings settings = parse("pase = 2\nseed = 4\n");
    settings.whole("seed", 0, 0, 9);
    EXPECT_THAT(settings.faults(),
                ElementsAre("hm-16.ini, line 1: pase is no setting of this library."));
}

TEST(Settings, NamesALineWithoutAnEqualsSignADoubleKeyAndAnOpenSection) {
    Settings settings = parse("what is this\na = 1\na = 2\n[open\n");
    EXPECT_EQ(settings.whole("a", 0, 0, 9), 1);
    EXPECT_THAT(settings.faults(),
                ElementsAre("hm-16.ini, line 1: \"what is this\" is no setting; write key = value.",
                            "hm-16.ini, line 3: a is set a second time.",
                            "hm-16.ini, line 4: \"[open\" lacks its closing bracket."));
}

TEST(Settings, AMissingFileHasNoSettingsAndNoFaults) {
    const TempFolder folder;
    EXPECT_THAT(Settings::read(folder.path() / "hm-16.ini").faults(), IsEmpty());
}

TEST(Settings, AFolderInPlaceOfTheFileIsAFault) {
    const TempFolder folder;
    const auto faults = Settings::read(folder.path()).faults();
    ASSERT_EQ(faults.size(), 1u);
    EXPECT_EQ(faults[0], folder.path().string() + ": the settings file cannot be read.");
}

TEST(Settings, ALibrarysOwnRuleNamesTheLineToo) {
    Settings settings = parse("\n\nrate = 5\n");
    settings.whole("rate", 0, 0, 9);
    settings.addFault("rate", "does not go with the file.");
    EXPECT_THAT(settings.faults(),
                ElementsAre("hm-16.ini, line 3: rate does not go with the file."));
}

TEST(Settings, SurvivesAFileCutAtEveryLength) {
    const std::string whole = "\xEF\xBB\xBF[a]\r\nkey = 1\r\n; c\r\n=x\r\n[\r\n]\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        Settings settings = parse(whole.substr(0, length));
        const long value = settings.whole("a.key", 7, 0, 9);
        EXPECT_TRUE(value == 1 || value == 7) << length;
    }
}

}  // namespace
}  // namespace hm16
