// SPDX-License-Identifier: GPL-3.0-or-later
// Reading, rewriting and removing where the system is Windows; elsewhere rewrite_file_test.cpp.
#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>
#include <string>

#include "base/leftovers.h"
#include "base/read_file.h"
#include "base/remove_file.h"
#include "base/rewrite_file.h"
#include "tests/support/temp_folder.h"

namespace base {
namespace {

struct FilesOnWindows : testing::Test {
    hmonitor::test::TempFolder temp;
    const std::filesystem::path file = temp.path() / "hm-16.dat";
};

TEST_F(FilesOnWindows, ARewriteLeavesTheNewBytesAndNoOtherFile) {
    EXPECT_EQ(rewriteFile(file, "one\r\n"), 0);
    EXPECT_EQ(rewriteFile(file, std::string("two\0\n", 5)), 0);
    EXPECT_EQ(temp.read("hm-16.dat"), std::string("two\0\n", 5));
    EXPECT_EQ(temp.names(), std::set<std::string>{"hm-16.dat"});
    EXPECT_EQ(readFile(file).bytes, std::string("two\0\n", 5));
}

TEST_F(FilesOnWindows, LettersOutsideTheCodePageAreNamesToo) {
    const std::filesystem::path name = temp.path() / L"sesi\u00f3n \u03a9.3Ds";
    EXPECT_EQ(rewriteFile(name, "x"), 0);
    EXPECT_EQ(readFile(name).bytes, "x");
    EXPECT_EQ(removeFile(name), 0);
    EXPECT_TRUE(temp.names().empty());
}

TEST_F(FilesOnWindows, WhatIsTheSameIsNotTouched) {
    temp.write("hm-16.dat", "same");
    const auto before = std::filesystem::last_write_time(file);
    Sleep(20);
    EXPECT_EQ(rewriteFile(file, "same"), 0);
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
}

TEST_F(FilesOnWindows, AFileThatSomebodyHoldsStaysAsItWas) {
    temp.write("hm-16.dat", "old");
    const HANDLE held = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(rewriteFile(file, "new"), EACCES);
    CloseHandle(held);
    EXPECT_EQ(temp.read("hm-16.dat"), "old");
    EXPECT_EQ(temp.names(), std::set<std::string>{"hm-16.dat"});
}

TEST_F(FilesOnWindows, WhatIsMissingOrAFolderIsSaid) {
    EXPECT_EQ(readFile(file).reason, ENOENT);
    EXPECT_EQ(removeFile(file), ENOENT);
    EXPECT_EQ(rewriteFile(temp.path() / "none" / "a", "x"), ENOENT);
    EXPECT_EQ(readFile(temp.path()).reason, EISDIR);
    EXPECT_EQ(rewriteFile(temp.path(), "x"), EISDIR);
    std::filesystem::create_directory(file);
    EXPECT_EQ(removeFile(file), EACCES);
    EXPECT_TRUE(std::filesystem::is_directory(file));
}

TEST_F(FilesOnWindows, LeftoversGoUnlessTheyAreBeingWritten) {
    temp.write(leftoverName(1, 0), "torn");
    temp.write("hm-16.dat", "x");
    const auto writing = temp.path() / leftoverName(1, 1);
    const HANDLE held = CreateFileW(writing.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    removeLeftovers(temp.path());
    EXPECT_EQ(temp.names(), (std::set<std::string>{leftoverName(1, 1), "hm-16.dat"}));
    CloseHandle(held);
    removeLeftovers(temp.path());
    EXPECT_EQ(temp.names(), std::set<std::string>{"hm-16.dat"});
}

}  // namespace
}  // namespace base
