// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_settings.h"

#include <gtest/gtest.h>

#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

const std::string kInstalled = "1\r\n0\r\n0\r\n1\r\n0\r\n0\r\n0\r\n0\r\n";

struct PanelSettingsTest : testing::Test {
    test::TempFolder temp;
    Files files{temp.path()};

    PanelSettings readAll() { return *PanelSettings::read(files, PanelLine::ScannerOffset); }
};

TEST_F(PanelSettingsTest, LinesAreTextAndBecomeNumbersWhenUsed) {
    temp.write("hm-16.dat", "17\r\n -3.5 \r\nx\r\n1\r\n0\r\n1\r\n0\r\n12\r\n");
    const PanelSettings settings = readAll();
    EXPECT_EQ(settings.value(PanelLine::MemoryPreset), 17);
    EXPECT_EQ(settings.line(PanelLine::DbCorrection), " -3.5 ");
    EXPECT_EQ(settings.value(PanelLine::DbCorrection), -3.5);
    EXPECT_EQ(settings.value(PanelLine::OddFrequencies), 0);
    EXPECT_EQ(settings.line(PanelLine::AllFrequencies), "1");
    EXPECT_EQ(settings.line(PanelLine::MakeLog), "0");
    EXPECT_EQ(settings.line(PanelLine::Detector), "1");
    EXPECT_EQ(settings.line(PanelLine::AudioMode), "0");
    EXPECT_EQ(settings.value(PanelLine::ScannerOffset), 12);
}

TEST_F(PanelSettingsTest, AMissingFileSaysSo) {
    const auto settings = PanelSettings::read(files, PanelLine::DbCorrection);
    ASSERT_FALSE(settings);
    EXPECT_EQ(settings.fault().sentence, "File not found: hm-16.dat");
}

TEST_F(PanelSettingsTest, ReadsNoMoreLinesThanAreUsed) {
    temp.write("hm-16.dat", "3\r\n-3.5\r\n");
    const auto settings = PanelSettings::read(files, PanelLine::DbCorrection);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->line(PanelLine::MemoryPreset), "3");
    EXPECT_EQ(settings->line(PanelLine::AudioMode), "");
    EXPECT_EQ(PanelSettings::read(files, PanelLine::AudioMode).fault().sentence,
              "hm-16.dat: line 3 is missing");
}

TEST_F(PanelSettingsTest, CutAtEveryLengthGivesTheLinesOrNamesTheMissingOne) {
    for (std::size_t length = 0; length <= kInstalled.size(); ++length) {
        temp.write("hm-16.dat", kInstalled.substr(0, length));
        const auto settings = PanelSettings::read(files, PanelLine::ScannerOffset);
        const std::size_t whole = (length + 2) / 3;  // each line is three bytes, its digit first
        SCOPED_TRACE(length);
        ASSERT_EQ(static_cast<bool>(settings), whole == 8);
        if (settings) continue;
        EXPECT_EQ(settings.fault().sentence,
                  "hm-16.dat: line " + std::to_string(whole + 1) + " is missing");
    }
}

TEST_F(PanelSettingsTest, ARewriteChangesOneLineAndKeepsTheOthersToTheByte) {
    temp.write("hm-16.dat", "1\r\n -3.5\r\nod\xF1\r\n\r\n0\r\n0\r\n0\r\n007\r\n");
    EXPECT_FALSE(rewritePanelLine(files, PanelLine::Detector, "1"));
    EXPECT_EQ(temp.read("hm-16.dat"), "1\r\n -3.5\r\nod\xF1\r\n\r\n0\r\n1\r\n0\r\n007\r\n");
}

TEST_F(PanelSettingsTest, ARewriteClosesEachLineWithCarriageReturnAndLineFeed) {
    temp.write("hm-16.dat", "1\n2\n3\n4\n5\n6\n7\n8");
    EXPECT_FALSE(rewritePanelLine(files, PanelLine::MemoryPreset, "16"));
    EXPECT_EQ(temp.read("hm-16.dat"), "16\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n");
}

TEST_F(PanelSettingsTest, ARewriteHasEightLinesWhateverStoodBehind) {
    temp.write("hm-16.dat", kInstalled + "9\r\n10\r\n");
    EXPECT_FALSE(rewritePanelLine(files, PanelLine::AudioMode, "1"));
    EXPECT_EQ(temp.read("hm-16.dat"), "1\r\n0\r\n0\r\n1\r\n0\r\n0\r\n1\r\n0\r\n");
}

TEST_F(PanelSettingsTest, ARewriteOfAShortFileIsRefusedAndLeavesIt) {
    temp.write("hm-16.dat", "1\r\n0\r\n");
    EXPECT_EQ(rewritePanelLine(files, PanelLine::MemoryPreset, "2")->sentence,
              "hm-16.dat: line 3 is missing");
    EXPECT_EQ(temp.read("hm-16.dat"), "1\r\n0\r\n");
}

TEST_F(PanelSettingsTest, SeveralLinesChangeInOneRewrite) {
    temp.write("hm-16.dat", kInstalled);
    const PanelSettings changed = readAll()
                                      .with(PanelLine::DbCorrection, "-3.5")
                                      .with(PanelLine::OddFrequencies, "1")
                                      .with(PanelLine::AllFrequencies, "0")
                                      .with(PanelLine::MakeLog, "1");
    EXPECT_EQ(temp.read("hm-16.dat"), kInstalled);
    EXPECT_FALSE(changed.write(files));
    EXPECT_EQ(temp.read("hm-16.dat"), "1\r\n-3.5\r\n1\r\n0\r\n1\r\n0\r\n0\r\n0\r\n");
}

TEST_F(PanelSettingsTest, AFolderThatCannotBeWrittenLeavesTheFileAndSaysWhy) {
    temp.write("hm-16.dat", kInstalled);
    test::setRights(temp.path(), 0555);
    {
        const test::AsNobody nobody;
        const auto fault = rewritePanelLine(files, PanelLine::Detector, "1");
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->sentence, "hm-16.dat cannot be written: Permission denied");
    }
    test::setRights(temp.path(), 0755);
    EXPECT_EQ(temp.read("hm-16.dat"), kInstalled);
}

}  // namespace
}  // namespace hmonitor
