// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/station_defaults.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

struct StationDefaultsTest : testing::Test {
    test::TempFolder temp;
    Files files{temp.path()};
};

TEST_F(StationDefaultsTest, TakeLinesOneFiveEightAndNine) {
    temp.write("normal.hm", "100\r\na\r\nb\r\nc\r\n1.000\r\nd\r\ne\r\n2\r\n90\r\n");
    const auto defaults = StationDefaults::read(files);
    ASSERT_TRUE(defaults);
    EXPECT_EQ(defaults->Text1, "1.000");
    EXPECT_EQ(defaults->Text2, "100");
    EXPECT_EQ(defaults->Text3, "2");
    EXPECT_EQ(defaults->Text4, "90");
}

TEST_F(StationDefaultsTest, ThePowerIsItsFirstFiveCharacters) {
    temp.write("normal.hm", "1\n2\n3\n4\n\x80 10 kilowatts\n6\n7\n8\n9");
    EXPECT_EQ(StationDefaults::read(files)->Text1, "\u20ac 10 ");
}

TEST_F(StationDefaultsTest, TheOthersAreTheWholePartOfTheirValue) {
    temp.write("normal.hm", " 99.9%\r\n\r\n\r\n\r\n\r\n\r\n\r\n-1.5\r\ntwo\r\n");
    const auto defaults = StationDefaults::read(files);
    EXPECT_EQ(defaults->Text1, "");
    EXPECT_EQ(defaults->Text2, "99");
    EXPECT_EQ(defaults->Text3, "-2");
    EXPECT_EQ(defaults->Text4, "0");
}

TEST_F(StationDefaultsTest, CutAtEveryLengthAreWholeOrNameTheMissingLine) {
    const std::string whole = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        temp.write("normal.hm", whole.substr(0, length));
        const auto defaults = StationDefaults::read(files);
        const std::size_t lines = (length + 2) / 3;
        SCOPED_TRACE(length);
        ASSERT_EQ(static_cast<bool>(defaults), lines == 9);
        if (defaults) continue;
        EXPECT_EQ(defaults.fault().sentence,
                  "normal.hm: line " + std::to_string(lines + 1) + " is missing");
    }
}

TEST_F(StationDefaultsTest, AMissingFileSaysSo) {
    EXPECT_EQ(StationDefaults::read(files).fault().sentence, "File not found: normal.hm");
}

}  // namespace
}  // namespace hmonitor
