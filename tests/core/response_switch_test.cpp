// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/response_switch.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

struct ResponseSwitchTest : testing::Test {
    test::TempFolder temp;
    Files files{temp.path()};
};

TEST_F(ResponseSwitchTest, OffIsThreeZeros) {
    EXPECT_FALSE(ResponseSwitch::off().write(files));
    EXPECT_EQ(temp.read("Hm-res.dat"), "0\r\n0\r\n0\r\n");
}

TEST_F(ResponseSwitchTest, ArmedHasTheErrorWithoutBlankAndTheLevelBetweenBlanks) {
    EXPECT_FALSE(ResponseSwitch::armed(1.5f, 8.9f).write(files));
    EXPECT_EQ(temp.read("Hm-res.dat"), "1\r\n1.5\r\n 8.9 \r\n");
    EXPECT_FALSE(ResponseSwitch::armed(-0.5f, -1).write(files));
    EXPECT_EQ(temp.read("Hm-res.dat"), "1\r\n-0.5\r\n-1 \r\n");
}

TEST_F(ResponseSwitchTest, ReadsBackWhatWasArmed) {
    ResponseSwitch::armed(-2.25f, 9.1f).write(files);
    const auto read = ResponseSwitch::read(files, SwitchLine::PilotLevel);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->line(SwitchLine::Armed), "1");
    EXPECT_EQ(read->value(SwitchLine::PilotError), -2.25);
    EXPECT_EQ(read->value(SwitchLine::PilotLevel), 9.1);
}

TEST_F(ResponseSwitchTest, ReadsNoMoreLinesThanAreUsed) {
    temp.write("Hm-res.dat", "1");
    EXPECT_EQ(ResponseSwitch::read(files, SwitchLine::Armed)->value(SwitchLine::Armed), 1);
    EXPECT_EQ(ResponseSwitch::read(files, SwitchLine::PilotLevel).fault().sentence,
              "Hm-res.dat: line 2 is missing");
    temp.write("Hm-res.dat", "");
    EXPECT_EQ(ResponseSwitch::read(files, SwitchLine::Armed).fault().sentence,
              "Hm-res.dat: line 1 is missing");
}

TEST_F(ResponseSwitchTest, AMissingFileSaysSo) {
    EXPECT_EQ(ResponseSwitch::read(files, SwitchLine::Armed).fault().sentence,
              "File not found: Hm-res.dat");
}

}  // namespace
}  // namespace hmonitor
