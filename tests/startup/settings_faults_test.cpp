// SPDX-License-Identifier: GPL-3.0-or-later
// A start with settings files that are missing, torn, too long or no text: either one sentence and
// the end, or a live rack. The panel settings of a live rack have been rewritten once, with the
// audio mode, as at every start; no other file has changed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/as_nobody.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::Not;

const std::string kSettings = "hm-16.dat";

/// Starts with that content in a file; returns the sentence that ended the program, "" if the rack
/// came up and measured.
std::string startOn(const std::string& name, const std::string& content,
                    const std::string& rewritten = "") {
    RackBench bench;
    bench.write(name, content);
    bench.desktop.boxAnswers = {"ok"};
    bench.readings.field = 60;
    bench.start();
    bench.advance(1000ms);
    EXPECT_EQ(bench.read(name), rewritten.empty() ? content : rewritten) << name;
    EXPECT_LE(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.ended(), bench.desktop.boxes.size() == 1);
    if (!bench.desktop.ended()) {
        EXPECT_NE(bench.form1.Label_FieldIntensity.caption, "");
        return "";
    }
    EXPECT_THAT(bench.driver.calls, Not(Contains("HM_Terminate")));
    return bench.desktop.boxes.empty() ? "no sentence" : bench.desktop.boxes[0].text;
}

TEST(SettingsFaults, AMissingFileIsOneMessageAndTheEnd) {
    for (const std::string name : {"normal.hm", "hm-16.dat", "Hm-res.dat", "halden.dat"}) {
        RackBench bench;
        bench.remove(name);
        bench.desktop.boxAnswers = {"ok"};
        bench.start();
        EXPECT_TRUE(bench.desktop.ended()) << name;
        ASSERT_EQ(bench.desktop.boxes.size(), 1u) << name;
        EXPECT_EQ(bench.desktop.boxes[0].text, "File not found: " + name);
        EXPECT_THAT(bench.driver.calls, Not(Contains("HM_Terminate"))) << name;
        EXPECT_FALSE(bench.exists(name)) << name;
    }
}

TEST(SettingsFaults, AShortOrEmptyFileNamesItsMissingLine) {
    EXPECT_EQ(startOn("normal.hm", ""), "normal.hm: line 1 is missing");
    EXPECT_EQ(startOn("normal.hm", lines({"100", "0", "0", "0", "1.000", "0"})),
              "normal.hm: line 7 is missing");
    EXPECT_EQ(startOn(kSettings, ""), "hm-16.dat: line 1 is missing");
    EXPECT_EQ(startOn(kSettings, "1\r\n"), "hm-16.dat: line 2 is missing");
    // The preset and the correction are read first, the other lines at the first tuning.
    EXPECT_EQ(startOn(kSettings, lines({"1", "0"})), "hm-16.dat: line 3 is missing");
    EXPECT_EQ(startOn(kSettings, lines({"1", "0", "0", "1", "0", "0"})),
              "hm-16.dat: line 7 is missing");
    // A file that is rewritten has to be whole.
    EXPECT_EQ(startOn(kSettings, lines({"1", "0", "0", "1", "0", "0", "0"})),
              "hm-16.dat: line 8 is missing");
    EXPECT_EQ(startOn("Hm-res.dat", ""), "Hm-res.dat: line 1 is missing");
}

TEST(SettingsFaults, NoMoreLinesAreAskedForThanAreUsed) {
    EXPECT_EQ(startOn("Hm-res.dat", "0"), "");
    EXPECT_EQ(startOn("halden.dat", memoryBlock({{1, "UNO", "981"}}).substr(0, 32)), "");
}

TEST(SettingsFaults, AFileThatIsTooLongOrHasBareLineFeedsIsRead) {
    const std::string bare = "1\n0\n0\n1\n0\n0\n0\n0\n";
    const std::string whole = lines({"1", "0", "0", "1", "0", "0", "0", "0"});
    EXPECT_EQ(startOn(kSettings, bare, whole), "");
    EXPECT_EQ(startOn(kSettings, whole + "9\r\n10\r\n" + std::string(100000, 'x'), whole), "");
    EXPECT_EQ(startOn("normal.hm", "100\n0\n0\n0\n1.000\n0\n0\n2\n90"), "");
    EXPECT_EQ(startOn("halden.dat", memoryBlock({{1, "UNO", "981"}}) + std::string(1 << 20, 'x')),
              "");
}

TEST(SettingsFaults, TextForNumbersAndBytesAbove127ReadAsZeroOrAsTheyStand) {
    EXPECT_EQ(startOn(kSettings, lines({"1", "\xe9\xff", "x", "x", "x", "x", "x", "x"}),
                      lines({"1", "\xe9\xff", "x", "x", "x", "x", "0", "x"})),
              "");
    EXPECT_EQ(startOn(kSettings, lines({"one", "two", "", "", "", "", "", ""}),
                      lines({"one", "two", "", "", "", "", "0", ""})),
              "");
    EXPECT_EQ(startOn(kSettings, lines({"-3", "1e9", "0", "1", "0", "0", "0", "0"})), "");
    EXPECT_EQ(startOn("normal.hm", std::string(9, '\n')), "");
    EXPECT_EQ(startOn("normal.hm", lines({"\xff", "", "", "", "\xe9\xe9\xe9\xe9\xe9\xe9", "", "",
                                          "nan", "inf"})),
              "");
    EXPECT_EQ(startOn("Hm-res.dat", lines({"\xff", "x", "y"})), "");
    EXPECT_EQ(startOn("halden.dat", std::string(300, '\xff')), "");
    EXPECT_EQ(startOn("halden.dat", ""), "");
}

TEST(SettingsFaults, AFolderByTheNameOrNoRightToReadIsOneSentence) {
    for (const std::string name : {"normal.hm", "hm-16.dat", "Hm-res.dat", "halden.dat"}) {
        RackBench bench;
        bench.remove(name);
        std::filesystem::create_directory(bench.scratch.path() / name);
        bench.desktop.boxAnswers = {"ok"};
        bench.start();
        EXPECT_TRUE(bench.desktop.ended()) << name;
        ASSERT_EQ(bench.desktop.boxes.size(), 1u) << name;
        EXPECT_EQ(bench.desktop.boxes[0].text, name + " cannot be read: Is a directory");
    }
}

TEST(SettingsFaults, InAFolderThatCannotBeWrittenTheDetectorKeySaysSoAndTunesOn) {
    RackBench bench;
    bench.start();
    bench.advance(100ms);
    bench.takeCalls();
    bench.desktop.boxAnswers = {"ok"};
    setRights(bench.scratch.path(), 0555);
    {
        const AsNobody nobody;
        bench.press(bench.form1.Image_Average);
    }
    setRights(bench.scratch.path(), 0755);
    ASSERT_EQ(bench.desktop.boxes.size(), 1u);
    EXPECT_EQ(bench.desktop.boxes[0].text, "hm-16.dat cannot be written: Permission denied");
    EXPECT_EQ(bench.read(kSettings), lines({"1", "0", "0", "1", "0", "0", "0", "0"}));
    EXPECT_THAT(bench.driver.calls, Contains("HM_Normal(981, 0, 0, 0, 0)"));
    EXPECT_FALSE(bench.desktop.ended());
}

}  // namespace
}  // namespace hmonitor::test
