// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/replace_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "tests/support/temp_folder.h"

namespace hm16 {
namespace {

using hmonitor::test::TempFolder;

TEST(ReplaceFile, PutsNewBytesInPlaceAndLeavesNothingElse) {
    const TempFolder folder;
    folder.write("0985.dat", "old");
    EXPECT_EQ(replaceFile(folder.path() / "0985.dat", "new\r\n"), std::nullopt);
    EXPECT_EQ(folder.read("0985.dat"), "new\r\n");
    EXPECT_EQ(folder.names().size(), 1u);
}

TEST(ReplaceFile, NamesFileAndReasonAndKeepsTheOldFile) {
    const TempFolder folder;
    std::filesystem::create_directory(folder.path() / "0985.dat");
    folder.write("0985.dat/inside", "x");
    const auto fault = replaceFile(folder.path() / "0985.dat", "new");
    ASSERT_TRUE(fault);
    EXPECT_EQ(*fault,
              (folder.path() / "0985.dat").string() + " cannot be written: Is a directory.");
    EXPECT_EQ(folder.read("0985.dat/inside"), "x");
    EXPECT_EQ(folder.names().size(), 1u);
}

TEST(ReplaceFile, NamesAFolderThatIsNotThere) {
    const auto fault = replaceFile("/no/such/folder/0985.dat", "new");
    ASSERT_TRUE(fault);
    EXPECT_EQ(*fault, "/no/such/folder/0985.dat cannot be written: No such file or directory.");
}

TEST(RemoveUnfinishedFiles, RemovesThoseOfDeadProcessesOnly) {
    const TempFolder folder;
    const std::string living = "~hm16-0985.dat." + std::to_string(getpid()) + ".new";
    folder.write("~hm16-0985.dat.999999999.new", "torn");
    folder.write("~hm16-x.new", "torn");
    folder.write(living, "being written");
    folder.write("0985.dat", "kept");
    folder.write("20260304.log", "kept");
    removeUnfinishedFiles(folder.path());
    EXPECT_FALSE(folder.has("~hm16-0985.dat.999999999.new"));
    EXPECT_FALSE(folder.has("~hm16-x.new"));
    EXPECT_TRUE(folder.has(living));
    EXPECT_TRUE(folder.has("0985.dat"));
    EXPECT_TRUE(folder.has("20260304.log"));
}

TEST(RemoveUnfinishedFiles, BearsAFolderThatIsNotThere) {
    removeUnfinishedFiles("/no/such/folder");
    EXPECT_FALSE(std::filesystem::exists("/no/such/folder"));
}

TEST(FileBytes, GivesNothingForAMissingFileOrAFolder) {
    const TempFolder folder;
    folder.write("empty", "");
    EXPECT_EQ(fileBytes(folder.path() / "none"), std::nullopt);
    EXPECT_EQ(fileBytes(folder.path()), std::nullopt);
    EXPECT_EQ(fileBytes(folder.path() / "empty"), "");
}

[[noreturn]] void rewriteForEver(const std::filesystem::path& file) {
    const std::string first(20000, 'a');
    const std::string second(30000, 'b');
    for (;;) {
        replaceFile(file, first);
        replaceFile(file, second);
    }
}

bool isWhole(const std::string& bytes) {
    return bytes == std::string(20000, 'a') || bytes == std::string(30000, 'b');
}

// A process that does nothing but rewrite is killed again and again: whoever reads afterwards finds
// an old or a new file, whole.
TEST(ReplaceFile, LeavesAWholeFileAfterThreeHundredKills) {
    const TempFolder folder;
    const auto file = folder.path() / "0985.dat";
    ASSERT_EQ(replaceFile(file, std::string(20000, 'a')), std::nullopt);
    std::mt19937 random(16);
    for (int round = 0; round < 300; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) rewriteForEver(file);
        usleep(200 + random() % 3000);
        ASSERT_EQ(kill(child, SIGKILL), 0);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        ASSERT_TRUE(isWhole(folder.read("0985.dat"))) << "round " << round;
        removeUnfinishedFiles(folder.path());
        ASSERT_EQ(folder.names().size(), 1u) << "round " << round;
    }
}

}  // namespace
}  // namespace hm16
