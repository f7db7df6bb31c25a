// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/folder_lock.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

TEST(FolderLockTest, ASecondRunOnTheFolderIsToldSo) {
    const test::TempFolder temp;
    std::optional<FolderLock> first(std::in_place, temp.path());
    EXPECT_FALSE(first->isTakenByAnother());
    EXPECT_TRUE(FolderLock(temp.path()).isTakenByAnother());
    first.reset();
    EXPECT_FALSE(FolderLock(temp.path()).isTakenByAnother());
}

TEST(FolderLockTest, TwoFoldersDoNotHinderEachOther) {
    const test::TempFolder one, other;
    const FolderLock first(one.path());
    EXPECT_FALSE(FolderLock(other.path()).isTakenByAnother());
}

TEST(FolderLockTest, LeavesNoFileBehind) {
    const test::TempFolder temp;
    { const FolderLock lock(temp.path()); }
    EXPECT_TRUE(temp.names().empty());
}

TEST(FolderLockTest, AFolderThatIsNotThereIsHeldByNobody) {
    EXPECT_FALSE(FolderLock("/no/such/folder").isTakenByAnother());
}

}  // namespace
}  // namespace hmonitor
