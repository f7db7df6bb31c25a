// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/folder_lock.h"
#include "tests/support/temp_folder.h"

namespace hmonitor {
namespace {

TEST(FolderLockTest, GoesWithItsProcessHoweverItEnds) {
    const test::TempFolder temp;
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const FolderLock lock(temp.path());
        const char taken = lock.isTakenByAnother() ? 'n' : 'y';
        if (::write(ready[1], &taken, 1) == 1) ::pause();
        ::_exit(1);
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_EQ(byte, 'y');
    EXPECT_TRUE(FolderLock(temp.path()).isTakenByAnother());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(FolderLock(temp.path()).isTakenByAnother());
    ::close(ready[0]);
    ::close(ready[1]);
}

}  // namespace
}  // namespace hmonitor
