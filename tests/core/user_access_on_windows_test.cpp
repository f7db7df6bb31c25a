// SPDX-License-Identifier: GPL-3.0-or-later
// Whom a file or a folder lets write, and the user's place, where the system is Windows.
#include <gtest/gtest.h>
#include <windows.h>

#include <optional>

#include "core/user_access.h"
#include "core/working_folder.h"
#include "tests/support/as_nobody.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

using test::TempFolder;

TEST(UserAccess, AFileThatIsMarkedReadOnlyMayNotBeWritten) {
    TempFolder temp;
    temp.write("a", "x");
    const auto file = temp.path() / "a";
    EXPECT_TRUE(mayBeWritten(file));
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(mayBeWritten(file));
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(mayBeWritten(file));
    EXPECT_EQ(temp.read("a"), "x");
}

TEST(UserAccess, WhatIsNotThereMayNotBeWritten) {
    TempFolder temp;
    EXPECT_TRUE(mayBeWritten(temp.path()));
    EXPECT_FALSE(mayBeWritten(temp.path() / "a"));
    EXPECT_TRUE(temp.names().empty());
}

TEST(UserAccess, AFolderWhoseRightsAreOfOthersIsNotWorkedIn) {
    TempFolder installed;
    TempFolder home;
    ASSERT_EQ(::_wputenv_s(L"LOCALAPPDATA", home.path().c_str()), 0);
    test::setRights(installed.path(), 0555);
    EXPECT_FALSE(mayBeWritten(installed.path()));
    EXPECT_EQ(workingFolder({}, installed.path()), home.path() / "hmonitor");
    test::setRights(installed.path(), 0755);
    EXPECT_TRUE(mayBeWritten(installed.path()));
}

TEST(UserAccess, AUserMayHaveAnyName) {
    const std::filesystem::path home = L"C:\\Users\\Jos\u00e9 \u03a9\u0416";
    ASSERT_EQ(::_wputenv_s(L"LOCALAPPDATA", home.c_str()), 0);
    EXPECT_EQ(userData(), home);
    ASSERT_EQ(::_wputenv_s(L"LOCALAPPDATA", L""), 0);
    EXPECT_EQ(userData(), std::nullopt);
}

}  // namespace
}  // namespace hmonitor
