// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files.h"

#include <gtest/gtest.h>

#include "base/leftovers.h"
#include "core/text_lines.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::AsNobody;
using test::TempFolder;

struct FilesTest : testing::Test {
    TempFolder temp;
    Files files{temp.path()};
};

TEST_F(FilesTest, AMissingFileSaysSo) {
    const auto result = files.read("hm-16.dat");
    ASSERT_FALSE(result);
    EXPECT_EQ(result.fault().kind, FileFaultKind::Missing);
    EXPECT_EQ(result.fault().sentence, "File not found: hm-16.dat");
}

TEST_F(FilesTest, AMissingFolderIsAMissingFile) {
    const Files none(temp.path() / "none");
    EXPECT_EQ(none.read("a").fault().sentence, "File not found: a");
    EXPECT_EQ(none.rewrite("a", "x")->sentence, "a cannot be written: No such file or directory");
}

TEST_F(FilesTest, AFolderByTheNameIsUnreadable) {
    std::filesystem::create_directory(temp.path() / "halden.dat");
    const auto result = files.read("halden.dat");
    ASSERT_FALSE(result);
    EXPECT_EQ(result.fault().kind, FileFaultKind::Unreadable);
    EXPECT_EQ(result.fault().sentence, "halden.dat cannot be read: Is a directory");
    EXPECT_EQ(files.rewrite("halden.dat", "x")->sentence,
              "halden.dat cannot be written: Is a directory");
}

TEST_F(FilesTest, AFileWithoutReadPermissionSaysSo) {
    temp.write("hm-16.dat", "1");
    test::setRights(temp.path(), 0755);
    test::setRights(temp.path() / "hm-16.dat", 0);
    const AsNobody nobody;
    const auto result = files.read("hm-16.dat");
    ASSERT_FALSE(result);
    EXPECT_EQ(result.fault().kind, FileFaultKind::Unreadable);
    EXPECT_EQ(result.fault().sentence, "hm-16.dat cannot be read: Permission denied");
}

TEST_F(FilesTest, KeepsEveryByte) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    std::string large;
    for (int i = 0; i < 4096; ++i) large += all;  // a megabyte
    ASSERT_FALSE(files.rewrite("a", large));
    EXPECT_EQ(*files.read("a"), large);
    EXPECT_EQ(temp.read("a"), large);
}

TEST_F(FilesTest, ARewriteKeepsTheNameThatWasFound) {
    temp.write("HM-RES.DAT", "old");
    EXPECT_FALSE(files.rewrite("Hm-res.dat", "new"));
    EXPECT_EQ(temp.read("HM-RES.DAT"), "new");
    EXPECT_EQ(temp.names().size(), 1u);
}

TEST_F(FilesTest, RemovesWhatRewritesHaveLeftBehind) {
    temp.write(base::leftoverName(1, 0), "torn");
    temp.write("hm-16.dat", "1");
    files.removeLeftovers();
    EXPECT_EQ(temp.names(), std::set<std::string>{"hm-16.dat"});
}

TEST_F(FilesTest, RemovesAFileByAnyCase) {
    temp.write("SCAN.DAT", "x");
    EXPECT_FALSE(files.remove("scan.dat"));
    EXPECT_FALSE(files.exists("scan.dat"));
    EXPECT_FALSE(files.remove("scan.dat"));
}

TEST_F(FilesTest, ReadsNoMoreLinesThanAreAskedFor) {
    temp.write("a", "1\r\n2\r\n");
    EXPECT_EQ(*files.readLines("a", 2), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(files.readLines("a", 1)->size(), 1u);
    EXPECT_TRUE(files.readLines("a", 0)->empty());
}

TEST_F(FilesTest, AFileTooShortNamesTheFirstMissingLine) {
    temp.write("hm-16.dat", "1\r\n2\r\n3");
    const auto result = files.readLines("hm-16.dat", 7);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.fault().kind, FileFaultKind::TooShort);
    EXPECT_EQ(result.fault().sentence, "hm-16.dat: line 4 is missing");
    temp.write("empty", "");
    EXPECT_EQ(files.readLines("empty", 1).fault().sentence, "empty: line 1 is missing");
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (TextLines at(text); const auto line = at.next();) lines.emplace_back(*line);
    return lines;
}

TEST(TextLinesTest, EndWithALineFeedWithOrWithoutCarriageReturn) {
    EXPECT_EQ(linesOf("a\r\nb\nc\r\n"), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(TextLinesTest, TheLastMayHaveNoEnd) {
    EXPECT_EQ(linesOf("a\r\nb"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(linesOf("a\r\nb\r"), (std::vector<std::string>{"a", "b"}));
}

TEST(TextLinesTest, EmptyLinesCount) {
    EXPECT_EQ(linesOf("\r\n\n"), (std::vector<std::string>{"", ""}));
    EXPECT_TRUE(linesOf("").empty());
}

TEST(TextLinesTest, OtherBytesAreKept) {
    const std::string odd("\xF1\x81 \t\0\r x", 8);
    EXPECT_EQ(linesOf(odd + "\r\n"), (std::vector<std::string>{odd}));
    EXPECT_EQ(linesOf("a\r\r\nb"), (std::vector<std::string>{"a\r", "b"}));
}

TEST(TextLinesTest, KnowsItsEnd) {
    TextLines lines("a\nb");
    EXPECT_FALSE(lines.atEnd());
    lines.next();
    lines.next();
    EXPECT_TRUE(lines.atEnd());
    EXPECT_FALSE(lines.next());
}

TEST(JoinedLines, AreClosedByCarriageReturnAndLineFeed) {
    EXPECT_EQ(joinLines({"1", "", "-3.5"}), "1\r\n\r\n-3.5\r\n");
}

}  // namespace
}  // namespace hmonitor
